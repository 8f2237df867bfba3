#include "prepare/drawing/Encoding.h"

#include "base/Letters.h"
#include "base/NamedCodePage.h"
#include "base/Numbers.h"

#include <utility>

namespace prepare {

namespace {

// Code pages that files name without a number.
constexpr std::pair<std::string_view, std::string_view> kWords[] = {
    {"BIG5", "950"}, {"GB2312", "936"}, {"KSC5601", "949"}, {"JOHAB", "1361"}, {"SHIFT_JIS", "932"}};

} // namespace

std::string_view NumberedCodePage(std::string_view name)
{
    for (const auto& [word, number] : kWords)
        if (EndsInLetters(name, word))
            return number;
    return name;
}

bool IsEncoding(std::string_view name)
{
    if (EndsInLetters(name, "UTF-8") || EndsInLetters(name, "UTF8"))
        return true;
    const std::string_view numbered = NumberedCodePage(name);
    return !numbered.empty() && IsDigit(numbered.back()) && NamedCodePage(numbered).IsKnown();
}

} // namespace prepare
