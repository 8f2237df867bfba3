#include "prepare/drawing/Encoding.h"

#include "base/Blanks.h"
#include "base/Letters.h"
#include "base/NamedCodePage.h"

#include <utility>

namespace prepare {

namespace {

// Code pages that files name by other words than their number.
constexpr std::pair<std::string_view, std::string_view> kWords[] = {
    {"BIG5", "950"},      {"GB2312", "936"},    {"KSC5601", "949"},     {"JOHAB", "1361"},
    {"SHIFT_JIS", "932"}, {"SHIFT-JIS", "932"}, {"MACINTOSH", "10000"}, {"MAC-ROMAN", "10000"},
    {"8859_1", "28591"},  {"8859_2", "28592"},  {"8859_3", "28593"},    {"8859_4", "28594"},
    {"8859_5", "28595"},  {"8859_6", "28596"},  {"8859_7", "28597"},    {"8859_8", "28598"},
    {"8859_9", "28599"},  {"8859_13", "28603"}, {"8859_15", "28605"},   {"8859-1", "28591"},
    {"8859-2", "28592"},  {"8859-3", "28593"},  {"8859-4", "28594"},    {"8859-5", "28595"},
    {"8859-6", "28596"},  {"8859-7", "28597"},  {"8859-8", "28598"},    {"8859-9", "28599"},
    {"8859-13", "28603"}, {"8859-15", "28605"},
};

} // namespace

std::string_view NumberedCodePage(std::string_view name)
{
    for (const auto& [word, number] : kWords)
        if (EndsInLetters(name, word))
            return number;
    return name;
}

bool IsUtf8(std::string_view name)
{
    return EndsInLetters(name, "UTF-8") || EndsInLetters(name, "UTF8");
}

bool IsEncoding(std::string_view name)
{
    if (IsUtf8(name))
        return true;
    const std::string_view numbered = NumberedCodePage(name);
    return !numbered.empty() && IsDigit(numbered.back()) && NamedCodePage(numbered).IsKnown();
}

} // namespace prepare
