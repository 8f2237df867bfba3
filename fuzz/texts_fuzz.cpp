// The formatting codes of texts: whatever a text says, what is drawn of it is plain words at places, and no
// more of them than the text is long.
//
// Input: eight bytes that choose the entity's numbers, the rest is the text.
#include "FuzzInput.h"

#include "base/Utf8.h"
#include "prepare/plain/DrawAnyText.h"
#include "prepare/plain/MTextCodes.h"
#include "prepare/plain/TextWords.h"
#include "prepare/write/ModuleRemedies.h"

#include <cmath>
#include <iterator>
#include <limits>
#include <string>

namespace {

using namespace prepare;

bool IsFinite(Point2 p)
{
    return std::isfinite(p.x) && std::isfinite(p.y);
}

void RequireWords(std::string_view words, std::string_view allowed)
{
    FuzzRequireSame("UTF-8", ValidUtf8(words), words);
    for (const char c : words)
        FuzzRequire((static_cast<unsigned char>(c) >= 0x20 && c != 0x7F) ||
                        allowed.find(c) != std::string_view::npos,
                    "no control characters");
}

// What is drawn of a text.
class CheckingSink final : public PlainSink {
public:
    void Line(const Style&, Point2 start, Point2 end) override
    {
        FuzzRequire(IsFinite(start) && IsFinite(end), "a line's ends are finite");
        ++parts;
    }
    void Circle(const Style&, Point2, double) override { FuzzRequire(false, "no circles"); }
    void Arc(const Style&, Point2, double, double, double) override { FuzzRequire(false, "no arcs"); }
    void Ellipse(const Style&, Point2, Point2, double, double, double) override
    {
        FuzzRequire(false, "no ellipses");
    }
    void Polyline(const Style&, std::span<const PlainVertex> vertices, bool isClosed) override
    {
        FuzzRequire(isClosed && vertices.size() == 4, "a frame has four corners");
        ++parts;
    }
    void Text(const Style&, const PlainText& text) override
    {
        FuzzRequire(!text.text.empty(), "no empty texts");
        FuzzRequire(IsFinite(text.point) && IsFinite(text.along) && IsFinite(text.up), "finite places");
        RequireWords(text.text, {});
        bool isCut = false;
        RequireWords(ValueForModule(text.text, isCut), {});
        ++parts;
    }
    void Fill(const Style&, std::span<const std::vector<Point2>> rings) override { RequireBox(rings); }
    void Mask(std::span<const std::vector<Point2>> rings) override { RequireBox(rings); }
    void Insert(std::size_t, Point2, double, bool) override { FuzzRequire(false, "no inserts"); }

    std::size_t parts = 0;

private:
    void RequireBox(std::span<const std::vector<Point2>> rings)
    {
        FuzzRequire(rings.size() == 1 && rings[0].size() == 4, "one box");
        for (const Point2 corner : rings[0])
            FuzzRequire(IsFinite(corner), "a box's corners are finite");
        ++parts;
    }
};

double NumberOf(std::uint8_t byte)
{
    constexpr double kNumbers[] = {0,
                                   1,
                                   2.5,
                                   -1,
                                   0.001,
                                   30,
                                   1e-300,
                                   1e300,
                                   HUGE_VAL,
                                   -HUGE_VAL,
                                   std::numeric_limits<double>::quiet_NaN()};
    return kNumbers[byte % std::size(kNumbers)];
}

MText ReadEntity(FuzzInput& input)
{
    MText text;
    const std::uint8_t choice = input.Byte();
    text.attachment = choice % 11;
    text.columnType = choice / 11 % 3;
    text.linkedColumns = choice / 33 % 2;
    text.fill = input.Byte() % 32;
    text.hasFillColour = (text.fill & 8) != 0;
    text.height = NumberOf(input.Byte());
    text.width = NumberOf(input.Byte());
    text.columnWidth = NumberOf(input.Byte());
    text.definedHeight = NumberOf(input.Byte());
    text.spacing = text.fillScale = NumberOf(input.Byte());
    text.rotation = NumberOf(input.Byte());
    text.columns = 3;
    text.text = ValidUtf8(input.Rest());
    return text;
}

std::size_t PartsOf(const Entity& entity, const Drawing& drawing)
{
    CheckingSink sink;
    Report report;
    Budget budget(0.01);
    const DrawingScale scale(0.01, {}, 0);
    const Placement placement{drawing, {}, {}, scale, sink, report, budget};
    FuzzRequire(DrawAnyText(entity, placement, [](const StyleOfPart&) { return Style{}; }), "it is a text");
    RequireWords(PlainWordsOf(RawTextOf(entity), drawing), "\n");
    return sink.parts;
}

// Each byte is one item at most, and each item a piece with three lines along it, or a fraction.
constexpr std::size_t kPartsOfByte = 4, kPartsOfBox = 2, kLongestLetter = 4;

void RequireLinear(const MText& text)
{
    const MTextContent content = ReadMText(text.text, {}, {});
    FuzzRequire(content.items.size() <= text.text.size() + 1, "no more items than bytes");
    FuzzRequire(content.letters.size() <= kLongestLetter * text.text.size(), "no more letters than bytes");
    FuzzRequire(content.looks.size() <= content.items.size() + 1, "no more looks than items");
    FuzzRequire(content.paragraphs.size() <= text.text.size() + 1, "no more paragraphs than bytes");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    const Drawing drawing;
    const MText lines = ReadEntity(input);
    RequireLinear(lines);
    const std::size_t most = kPartsOfBox + kPartsOfByte * (lines.text.size() + 1);
    FuzzRequire(PartsOf(lines, drawing) <= most, "no more parts than bytes");

    Text line;
    line.text = lines.text;
    line.height = lines.height;
    line.rotation = lines.rotation;
    line.widthFactor = lines.spacing;
    line.horizontal = lines.attachment % 6;
    line.vertical = lines.attachment % 4;
    line.alignment = {lines.width, lines.definedHeight, 0};
    line.hasAlignment = lines.fill % 2 != 0;
    line.hasMText = lines.columnType == 1;
    FuzzRequire(PartsOf(line, drawing) <= most, "no more parts than bytes");
    return 0;
}
