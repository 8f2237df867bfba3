#include "svghost/Attributes.h"

#include "base/Blanks.h"
#include "base/Letters.h"
#include "base/Numbers.h"
#include "svghost/DrawableNumbers.h"
#include "svghost/XmlText.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <limits>

namespace svghost {

namespace {

struct KnownName {
    std::wstring_view name;
    AttributeId id;
};

// Few names have the same length: the length picks out one or two candidates, the usual one first.
constexpr KnownName kKnownNames[] = {
    {L"stroke", AttributeId::Stroke},
    {L"rotate", AttributeId::Rotate},
    {L"scale-x", AttributeId::ScaleX},
    {L"scale-y", AttributeId::ScaleY},
    {L"center-x", AttributeId::CenterX},
    {L"center-y", AttributeId::CenterY},
    {L"font-size", AttributeId::FontSize},
    {L"visibility", AttributeId::Visibility},
    {L"text-anchor", AttributeId::TextAnchor},
    {L"fill-opacity", AttributeId::FillOpacity},
    {L"stroke-width", AttributeId::StrokeWidth},
    {L"stroke-dasharray", AttributeId::DashArray},
    {L"pg-end-arrow-size", AttributeId::EndArrowSize},
    {L"pg-end-arrow-type", AttributeId::EndArrowType},
    {L"pg-begin-arrow-size", AttributeId::BeginArrowSize},
    {L"pg-begin-arrow-type", AttributeId::BeginArrowType},
};

constexpr std::size_t kLongestName = 19;

// For every length the first known name that is at least as long.
consteval auto MakeFirstOfLength()
{
    std::array<std::size_t, kLongestName + 2> index{};
    for (std::size_t length = 0; length < index.size(); ++length) {
        while (index[length] < std::size(kKnownNames) && kKnownNames[index[length]].name.size() < length)
            ++index[length];
    }
    return index;
}

constexpr auto kFirstOfLength = MakeFirstOfLength();

// One part of RGB(r,g,b): blanks, digits, blanks. A value above 255 becomes 255. The numbers that src/base
// reads may have a sign.
bool ReadColourPart(std::wstring_view& text, unsigned& part)
{
    const auto skip = [&] { text.remove_prefix(std::min(text.find_first_not_of(L' '), text.size())); };
    skip();
    std::size_t digits = 0;
    for (part = 0; digits < text.size() && IsDigit(text[digits]); ++digits)
        part = std::min(part * 10 + static_cast<unsigned>(text[digits] - L'0'), 255u);
    text.remove_prefix(digits);
    skip();
    return digits > 0;
}

bool ReadRgb(std::wstring_view text, unsigned (&parts)[3])
{
    if (!text.starts_with(L"RGB(") && !text.starts_with(L"rgb("))
        return false;
    text.remove_prefix(4);
    for (int i = 0; i < 3; ++i) {
        if (!ReadColourPart(text, parts[i]) || text.empty() || text.front() != (i < 2 ? L',' : L')'))
            return false;
        text.remove_prefix(1);
    }
    return text.empty();
}

bool IsColourFunction(std::wstring_view name)
{
    constexpr std::wstring_view kFunctions[] = {L"rgb", L"rgba", L"hsl",   L"hsla", L"hwb",
                                                L"lab", L"lch",  L"oklab", L"oklch"};
    return std::any_of(std::begin(kFunctions), std::end(kFunctions),
                       [&](std::wstring_view function) { return AreSameLetters(function, name); });
}

} // namespace

AttributeId AttributeByName(std::wstring_view name)
{
    if (name.size() > kLongestName)
        return AttributeId::Other;
    const std::size_t end = kFirstOfLength[name.size() + 1];
    for (std::size_t i = kFirstOfLength[name.size()]; i < end; ++i) {
        if (kKnownNames[i].name == name)
            return kKnownNames[i].id;
    }
    return AttributeId::Other;
}

bool ResolveStroke(std::wstring_view text, std::string& out)
{
    unsigned parts[3];
    if (!ReadRgb(text, parts)) {
        out += XmlTextOf(text);
        return !text.empty();
    }
    out += '#';
    for (const unsigned part : parts) {
        char digits[2];
        out.append(digits, FormatHex(part, 2, digits));
    }
    return true;
}

bool ResolveStrokeWidth(std::wstring_view text, std::string& out, double& width)
{
    std::wstring_view shortText;
    if (!ParseNumber(text.data(), width, shortText) || width < 0)
        return false;
    out.append(shortText.begin(), shortText.end()); // what numbers are made of has one byte
    return true;
}

std::wstring_view DashArrayText(const wchar_t* text)
{
    std::size_t size = 0;
    while (size <= kLongestDashArray && text[size] != L'\0')
        ++size;
    return {text, size};
}

namespace {

// Steps over what is between two lengths; false when nothing is, or a comma that no length follows.
bool SkipBetweenLengths(const wchar_t*& at)
{
    const wchar_t* const begin = at;
    at += std::wcsspn(at, L" ");
    const bool hasComma = *at == L',';
    at += hasComma;
    at += std::wcsspn(at, L" ");
    return *at == L'\0' ? !hasComma : at != begin;
}

} // namespace

// The values stay as they are given. Renderers differ on a pattern of zeros only, and a negative length is an
// error in SVG.
bool ResolveDashArray(std::wstring_view text, std::string& out, bool& isDotted)
{
    double sum = 0;
    for (const wchar_t* at = text.data(); *at != L'\0';) {
        double length = 0;
        std::wstring_view shortText;
        if (!ScanNumber(at, length, shortText) || length < 0)
            return false;
        isDotted = isDotted || length == 0;
        sum += length;
        if (!SkipBetweenLengths(at))
            return false;
    }
    out += XmlTextOf(text);
    return sum > 0;
}

bool ResolveTextAnchor(std::wstring_view text, std::string& out)
{
    if (text == L"left")
        text = L"start";
    else if (text == L"right")
        text = L"end";
    out += XmlTextOf(text);
    return !text.empty();
}

// A backslash begins an escape of CSS, which can spell the letters of any function.
bool MayFetch(std::wstring_view text)
{
    if (text.find(L'\\') != std::wstring_view::npos)
        return true;
    for (std::size_t open = text.find(L'('); open != std::wstring_view::npos;
         open = text.find(L'(', open + 1)) {
        const std::wstring_view before = text.substr(0, open);
        const std::size_t start = before.find_last_of(L" ,()") + 1; // 0 without such a character
        if (!IsColourFunction(before.substr(start)))
            return true;
    }
    return false;
}

} // namespace svghost
