// What the command says about a drawing.
#ifndef PLEXORN_CLI_MESSAGES_H
#define PLEXORN_CLI_MESSAGES_H

#include "svghost/SvgHost.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace plexorn {

// The line that a message of the reader names at its end ("Line:12", "Line (12)" or "(12)"), as its digits;
// empty when it names none.
std::string_view LineOfMessage(std::string_view message);

// Prints the reports of one import as they come, to the standard error stream, one "FILE:LINE: text" each.
// Nothing is kept of them but their number.
class CMessages {
public:
    // Takes the reports of document; this object lives until nothing is imported into it any more. A quiet
    // one counts them, and prints only that the file could not be opened.
    CMessages(SvgHostDocument* document, std::string_view file, bool isQuiet);
    CMessages(const CMessages&) = delete;
    CMessages& operator=(const CMessages&) = delete;

    // Brings all that was reported until now to the stream. Throws std::bad_alloc when memory was short for
    // one of them.
    void Flush();
    size_t Count() const { return m_nCount; }
    // Whether the drawing could not be opened; nothing was read then.
    bool IsUnread() const { return m_bUnread; }

private:
    static void Receive(void* self, const SvgHostError* error) noexcept;
    void Add(const SvgHostError& error);

    std::string m_strFile;
    std::string m_strOut;
    size_t m_nCount = 0;
    bool m_bQuiet;
    bool m_bUnread = false;
    bool m_bShortOfMemory = false;
};

// Prints one "FILE: text" to the standard error stream.
void PrintError(std::string_view file, std::string_view text);

// The closing line: what was drawn and where to, how many messages there were, how long it took, and what
// the host met that the picture does not show.
std::string Summary(const SvgHostStatistics& statistics, size_t messages, std::chrono::milliseconds time,
                    std::string_view output);

} // namespace plexorn

#endif
