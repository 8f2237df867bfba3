// Dimension texts with the few inline codes of multi-line text that are known here.
#include "base/Blanks.h"
#include "base/Pi.h"
#include "dimension/CDxfDimensionDrawing.h"

#include <cmath>
#include <cstdint>

namespace {

constexpr float kFirstHeight = 2.0f; // quirk 93

// The length that the width of a run is estimated from: UTF-16 units on every platform.
double LengthInUtf16(std::wstring_view text)
{
    std::size_t length = text.size();
    // NOLINTNEXTLINE(bugprone-signed-char-misuse,cert-str34-c): the characters are wide
    for (const std::int64_t character : text)
        length += character > 0xFFFF ? 1 : 0; // only where a wide character has more than 16 bits
    return static_cast<double>(length);
}

// The place of a separator that has something before it; npos if there is no such separator.
std::size_t FindSeparator(std::wstring_view text)
{
    std::size_t place = text.find(L'^');
    if (place == std::wstring_view::npos || place == 0)
        place = text.find(L'/');
    return place == 0 ? std::wstring_view::npos : place;
}

} // namespace

// What all pieces of one text share.
struct CDxfDimensionDrawing::TextRun {
    float angle; // degrees
    double cosine;
    double sine;
    float height; // of the font, before scaling
};

// A semicolon ends a piece, and each piece begins at the same point (quirk 112).
void CDxfDimensionDrawing::LayoutDimensionText(std::wstring_view text, float x, float y, float angle)
{
    const double radians = angle * kRadiansPerDegree;
    TextRun run{angle, std::cos(radians), std::sin(radians), kFirstHeight};
    for (std::wstring_view rest = text; !rest.empty();) { // empty pieces are skipped
        const std::wstring_view piece = rest.substr(0, rest.find(L';'));
        if (!piece.empty())
            LayoutPiece(piece, x, y, run);
        rest.remove_prefix(piece.size() < rest.size() ? piece.size() + 1 : piece.size());
    }
}

// A brace after some text begins a nested text, with the first height again. It has no ";" in it, so it is
// one piece: a round of the loop, however deep the braces go. What follows the outer piece keeps the outer
// height (quirk 115).
void CDxfDimensionDrawing::LayoutPiece(std::wstring_view text, double x, double y, TextRun& outer)
{
    TextRun nested = outer;
    nested.height = kFirstHeight; // a code within would end the piece, so nothing changes it
    for (TextRun* run = &outer; !text.empty(); run = &nested) {
        const std::size_t brace = text.find(L'{');
        if (text.front() == L'\\')
            return LayoutCode(text, x, y, *run);
        if (brace == std::wstring_view::npos || brace == 0)
            return LayoutPlain(text, x, y, *run);

        const std::wstring_view head = text.substr(0, brace);
        DrawText(head, x, y, m_scale * run->height, *run);
        const std::size_t close = text.find(L'}');
        const bool isClosed = close != std::wstring_view::npos && close > brace;
        text = text.substr(brace + 1, isClosed ? close - brace : 0); // with the closing brace (quirk 114)
        const double width = RunWidth(head, *run);
        x = ToFloat(x + width * run->cosine);
        y = ToFloat(y - width * run->sine); // the stacks of LayoutPlain go the other way (quirk 116)
    }
}

// A piece that is a code: a height of one digit (quirk 113) or a stack; alignment, colour and all other codes
// are skipped.
void CDxfDimensionDrawing::LayoutCode(std::wstring_view text, double x, double y, TextRun& run)
{
    const wchar_t code = text.size() > 1 ? text[1] : L'\0';
    if (code == L'H')
        run.height = text.size() > 2 && IsDigit(text[2]) ? static_cast<float>(text[2] - L'0') : 0.0f;
    else if (code == L'S')
        DrawStack(text.substr(2), x, y, run);
}

// A piece of plain text; a code within it draws what follows as a stack, whatever its letter (quirk 118).
void CDxfDimensionDrawing::LayoutPlain(std::wstring_view text, double x, double y, const TextRun& run)
{
    const std::wstring_view plain = text.substr(0, text.find(L'\\'));
    DrawText(plain, x, y, m_scale * run.height, run);
    if (plain.size() + 2 >= text.size())
        return;
    const double width = RunWidth(plain, run);
    DrawStack(text.substr(plain.size() + 2), x + width * run.cosine, y + width * run.sine, run);
}

// Numerator and denominator, half as high; nothing without a separator between them.
void CDxfDimensionDrawing::DrawStack(std::wstring_view text, double x, double y, const TextRun& run)
{
    const std::size_t separator = FindSeparator(text);
    if (separator == std::wstring_view::npos)
        return;
    const double size = m_scale * run.height * 0.5;
    const double drop = ToFloat(m_scale * run.height * 2.0 / 3.0);
    const std::wstring_view denominator = text.substr(separator + 1);
    DrawText(text.substr(0, separator), x, y, size, run);
    if (!denominator.empty())
        DrawText(denominator, x + drop * run.sine, y - drop * run.cosine, size, run);
}

// The estimated width of a run: four tenths of the height for each character.
double CDxfDimensionDrawing::RunWidth(std::wstring_view text, const TextRun& run) const
{
    return ToFloat(LengthInUtf16(text) * m_scale * run.height * 4.0 / 10.0);
}

void CDxfDimensionDrawing::DrawText(std::wstring_view text, double x, double y, double size,
                                    const TextRun& run)
{
    const QlmNode node = qlmCreateText(m_parentNode, L"", 0.0f, 0.0f, 0.0f, 0.0f, std::wstring(text).c_str(),
                                       ToFloat(x), ToFloat(y));
    SetAttribute(node, L"font-size", CDxfNumberText().AddWidth4Fixed2(size).c_str());
    SetAttribute(node, L"text-anchor", L"middle");
    SetAttribute(node, L"stroke", L"#00ff00");
    SetAttribute(node, L"rotate", CDxfNumberText().AddGeneral(run.angle).c_str());
}
