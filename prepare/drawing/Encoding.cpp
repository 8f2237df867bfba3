#include "prepare/drawing/Encoding.h"

#include "base/NamedCodePage.h"
#include "base/Numbers.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace prepare {

namespace {

// Code pages that files name without a number.
constexpr std::pair<std::string_view, std::string_view> kWords[] = {
    {"BIG5", "950"}, {"GB2312", "936"}, {"KSC5601", "949"}, {"JOHAB", "1361"}, {"SHIFT_JIS", "932"}};

// word is in capitals.
bool EndsIn(std::string_view name, std::string_view word)
{
    const auto isSame = [](char a, char b) { return a == (b >= 'a' && b <= 'z' ? b - 'a' + 'A' : b); };
    return name.size() >= word.size() &&
           std::equal(word.begin(), word.end(), name.end() - static_cast<std::ptrdiff_t>(word.size()),
                      isSame);
}

} // namespace

std::string_view NumberedCodePage(std::string_view name)
{
    for (const auto& [word, number] : kWords)
        if (EndsIn(name, word))
            return number;
    return name;
}

bool IsEncoding(std::string_view name)
{
    if (EndsIn(name, "UTF-8") || EndsIn(name, "UTF8"))
        return true;
    const std::string_view numbered = NumberedCodePage(name);
    return !numbered.empty() && IsDigit(numbered.back()) && NamedCodePage(numbered).IsKnown();
}

} // namespace prepare
