// What several drawings that are drawn at a time have to say, printed one drawing after the other.
#ifndef PLEXORN_CLI_PRINTER_H
#define PLEXORN_CLI_PRINTER_H

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <map>
#include <mutex>
#include <string>
#include <string_view>

namespace plexorn {

// Prints to the standard error stream, in the order of the drawings' numbers, from 0 on: what a drawing says
// is kept until its turn has come, and when much is kept already, who says more waits. All its functions can
// be called on any thread. Numbers have to be begun in their order.
class CPrinter {
public:
    // Shows on a terminal how far count drawings are, when showsProgress.
    CPrinter(size_t count, bool showsProgress);
    ~CPrinter();
    CPrinter(const CPrinter&) = delete;
    CPrinter& operator=(const CPrinter&) = delete;

    // Prints whole lines that drawing number has to say.
    void Print(size_t number, std::string_view lines);
    // Drawing number has nothing more to say.
    void End(size_t number, bool hasFailed);
    // Prints lines behind those of all drawings, which have ended.
    void Close(std::string_view lines);
    // Whether something could not be printed.
    bool IsAnyLost();

private:
    struct Waiting {
        std::string lines;
        bool isEnded = false;
    };

    void Write(std::string_view lines);
    void Advance();
    void ShowProgress();
    void ClearProgress();

    std::mutex m_mutex;
    std::condition_variable m_turnCame;
    size_t m_nTurn = 0;
    std::map<size_t, Waiting> m_waiting;
    size_t m_nWaitingBytes = 0;
    bool m_bLost = false;

    size_t m_nCount;
    bool m_bShowsProgress;
    size_t m_nEnded = 0;
    size_t m_nFailed = 0;
    size_t m_nShownWidth = 0;
    std::chrono::steady_clock::time_point m_shownAt;
};

} // namespace plexorn

#endif
