// The lines of a drawing as the standard library's stream gives them.
#pragma once

#include <cstddef>
#include <istream>
#include <limits>
#include <sstream>
#include <string>
#include <string_view>

// Reads bytes as a narrow stream in text mode does with getline into 1024 bytes, and goes on after a line
// that is too long for it, where such a stream stays stuck: the rest of the line is dropped. What CDxfStream
// is compared with.
class StreamModel {
public:
    static constexpr std::size_t kLine = 1024; // with the terminating zero

    explicit StreamModel(std::string_view bytes) : m_stream(TextMode(bytes)) {}

    // The next line up to a NUL in it, valid until the next call.
    std::string_view getline()
    {
        m_wasCut = false;
        m_stream.getline(m_line, kLine);
        if (m_stream.fail() && !m_stream.eof()) {
            m_stream.clear();
            m_stream.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
            m_wasCut = true;
        }
        return m_line;
    }

    bool eof() const { return m_stream.eof(); }

    // Whether the last line was too long.
    bool WasCut() const { return m_wasCut; }

    // The bytes as a file in text mode gives them.
    static std::string TextMode(std::string_view bytes)
    {
        bytes = bytes.substr(0, bytes.find('\x1A'));
        std::string text;
        text.reserve(bytes.size());
        for (std::size_t i = 0; i < bytes.size(); ++i)
            if (bytes[i] != '\r' || i + 1 == bytes.size() || bytes[i + 1] != '\n')
                text += bytes[i];
        return text;
    }

private:
    std::istringstream m_stream;
    char m_line[kLine];
    bool m_wasCut = false;
};
