#include "support/Hostile.h"

#include "support/TempFile.h"

#include <sstream>

namespace {

std::string Unescape(const std::string& text)
{
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] != '\\' || i + 1 == text.size())
            plain += text[i];
        else if (text[++i] == '0')
            plain += '\0';
        else
            plain += text[i] == 'n' ? '\n' : text[i];
    return plain;
}

std::string WithNumber(std::string text, std::size_t number)
{
    constexpr std::string_view kPlace = "{n}";
    for (std::size_t at = 0; (at = text.find(kPlace, at)) != std::string::npos;)
        text.replace(at, kPlace.size(), std::to_string(number));
    return text;
}

std::string Repeat(const std::string& pattern, std::size_t room)
{
    std::string text;
    for (std::size_t i = 0; !pattern.empty() && text.size() + pattern.size() <= room; ++i)
        text += WithNumber(pattern, i);
    return text;
}

} // namespace

std::string HostilePattern::Drawing(std::size_t size) const
{
    const std::size_t room = size - first.size() - middle.size() - last.size();
    const std::size_t half = second.empty() ? room : room / 2;
    return first + Repeat(repeated, half) + middle + Repeat(second, room - half) + last;
}

const std::vector<HostilePattern>& HostilePatterns()
{
    static const std::vector<HostilePattern> patterns = [] {
        std::vector<HostilePattern> found;
        std::istringstream file(BytesOf(PLEXORN_TEST_DATA "/robust/hostile.txt"));
        for (std::string line; std::getline(file, line);) {
            if (line.starts_with('#'))
                continue;
            std::vector<std::string> parts(1);
            for (const char character : line)
                if (character == '\t')
                    parts.emplace_back();
                else
                    parts.back() += character;
            parts.resize(6);
            found.push_back({parts[0], Unescape(parts[1]), Unescape(parts[2]), Unescape(parts[3]),
                             Unescape(parts[4]), Unescape(parts[5])});
        }
        return found;
    }();
    return patterns;
}
