#include "convert/CDxfStyleTexts.h"
#include "support/Import.h"
#include "support/TraceLines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

namespace {

struct Layer {
    std::string_view name;
    std::string_view color = "7";
    std::string_view lineType = "";
    std::string_view lineWeight = "-3";
};

struct LineType {
    std::string_view name;
    std::vector<std::string_view> dashes;
};

std::string TextOf(const LineType& lineType)
{
    std::string text = Dxf(
        {{0, "LTYPE"}, {100, "AcDbSymbolTableRecord"}, {100, "AcDbLinetypeTableRecord"}, {2, lineType.name}});
    for (const std::string_view dash : lineType.dashes)
        text += Dxf({{49, dash}});
    return text;
}

std::string TextOf(const Layer& layer)
{
    std::string text = Dxf({{0, "LAYER"}, {100, "AcDbSymbolTableRecord"}, {100, "AcDbLayerTableRecord"}}) +
                       Dxf({{2, layer.name}, {70, 0}, {62, layer.color}, {370, layer.lineWeight}});
    return layer.lineType.empty() ? text : text + Dxf({{6, layer.lineType}});
}

template <class Entry>
std::string Table(std::string_view name, const std::vector<Entry>& entries)
{
    std::string text = Dxf({{0, "TABLE"}, {2, name}});
    for (const Entry& entry : entries)
        text += TextOf(entry);
    return text + Dxf({{0, "ENDTAB"}});
}

std::string Tables(const std::vector<Layer>& layers, const std::vector<LineType>& lineTypes = {})
{
    return Section("TABLES", Table("LTYPE", lineTypes) + Table("LAYER", layers));
}

using Pairs = std::initializer_list<Group>;

// The values of the attributes of the first node in a trace.
std::map<std::string, std::string> AttributesOf(const std::string& trace)
{
    std::map<std::string, std::string> attributes;
    const std::string call = "qlmSetAttributeByNode(ctx, n1, \"";
    for (std::size_t at = trace.find(call); at != std::string::npos; at = trace.find(call, at + 1)) {
        const std::size_t name = at + call.size();
        const std::size_t value = trace.find("\", \"", name) + 4;
        attributes[trace.substr(name, value - 4 - name)] =
            trace.substr(value, trace.find("\")\n", value) - value);
    }
    return attributes;
}

std::string Line(Pairs pairs)
{
    return Dxf({{0, "LINE"}}) + Dxf(pairs);
}

std::string Drawing(const std::string& tables, const std::string& entities)
{
    return tables + Section("ENTITIES", entities) + Dxf({{0, "EOF"}});
}

// One attribute of a LINE with these pairs, drawn with these tables.
std::string AttributeOf(const char* name, const std::string& tables, Pairs pairs, double scale = 1.0)
{
    return AttributesOf(TraceOf(Drawing(tables, Line(pairs)),
                                [&](CDxfReadToQuillmar& converter) { converter.scale = scale; }))[name];
}

std::string Width(const std::string& tables, Pairs pairs, double scale = 1.0)
{
    return AttributeOf("stroke-width", tables, pairs, scale);
}

std::string Color(const std::string& tables, Pairs pairs)
{
    return AttributeOf("stroke", tables, pairs);
}

std::string Dashes(const std::string& tables, Pairs pairs, double scale = 1.0)
{
    return AttributeOf("stroke-dasharray", tables, pairs, scale);
}

} // namespace

TEST(StrokeWidth, IsTheLineWeightInMillimetres)
{
    EXPECT_EQ(Width("", {{370, 25}}), "0.250000");
    EXPECT_EQ(Width("", {{370, 1}}), "0.010000");
    EXPECT_EQ(Width("", {{370, 211}}), "2.110000");
    EXPECT_EQ(Width("", {{370, "2147483647"}}), "21474836.470000");
}

TEST(StrokeWidth, IsTheDefaultForByBlockZeroAndDefault)
{
    const std::string tables = Tables({{.name = "Walls", .lineWeight = "70"}});
    for (const char* weight : {"0", "-2", "-3", "-4", "-2147483648"}) {
        EXPECT_EQ(Width("", {{370, weight}}), "0.500000") << weight;
        EXPECT_EQ(Width(tables, {{8, "Walls"}, {370, weight}}), "0.500000") << weight;
    }
}

TEST(StrokeWidth, ByLayerIsTheLayers)
{
    const std::string tables = Tables({{.name = "A", .lineWeight = "50"}, {.name = "B", .lineWeight = "35"}});
    EXPECT_EQ(Width(tables, {{8, "A"}, {370, -1}}), "0.500000");
    EXPECT_EQ(Width(tables, {{8, "B"}, {370, -1}}), "0.350000");
    EXPECT_EQ(Width(tables, {{8, "B"}}), "0.350000") << "by layer is what a missing weight means";
}

TEST(StrokeWidth, ByLayerOnALayerWithoutAWeightIsTheDefault)
{
    for (const char* weight : {"-3", "-2", "-1", "0"})
        EXPECT_EQ(Width(Tables({{.name = "A", .lineWeight = weight}}), {{8, "A"}, {370, -1}}), "0.500000")
            << weight;
}

TEST(StrokeWidth, ByLayerWithoutItsLayerIsTheDefault)
{
    const std::string tables = Tables({{.name = "Walls", .lineWeight = "70"}});
    EXPECT_EQ(Width(tables, {{8, "walls"}}), "0.500000") << "names of different case are different";
    EXPECT_EQ(Width(tables, {{8, "Wall"}}), "0.500000");
    EXPECT_EQ(Width(tables, {}), "0.500000");
    EXPECT_EQ(Width("", {{8, "Walls"}, {370, -1}}), "0.500000");
}

TEST(StrokeWidth, OfTheEntityWinsOverItsLayers)
{
    EXPECT_EQ(Width(Tables({{.name = "A", .lineWeight = "50"}}), {{8, "A"}, {370, 9}}), "0.090000");
}

TEST(StrokeWidth, IsScaled)
{
    EXPECT_EQ(Width("", {{370, 25}}, 4), "1.000000");
    EXPECT_EQ(Width("", {{370, 0}}, 4), "2.000000");
    EXPECT_EQ(Width(Tables({{.name = "A", .lineWeight = "50"}}), {{8, "A"}}, 0.1), "0.050000");
}

TEST(StrokeWidth, ByDefaultIsAFractionOfTheScale)
{
    const auto configure = [](CDxfReadToQuillmar& converter) {
        converter.scale = 3;
        converter.defaultLineWidth = 0.25;
    };
    EXPECT_EQ(AttributesOf(TraceOf(Drawing("", Line({})), configure))["stroke-width"], "0.750000");
    EXPECT_EQ(AttributesOf(TraceOf(Drawing("", Line({{370, 100}})), configure))["stroke-width"], "3.000000");
}

TEST(StrokeColor, OfANumberFrom1To255IsThePalettes)
{
    EXPECT_EQ(Color("", {{62, 1}}), "RGB(255,0,0)");
    EXPECT_EQ(Color("", {{62, 5}}), "RGB(0,0,255)");
    EXPECT_EQ(Color("", {{62, 7}}), "RGB(255,255,255)");
    EXPECT_EQ(Color("", {{62, 8}}), "RGB(65,65,65)");
    EXPECT_EQ(Color("", {{62, 30}}), "RGB(255,127,0)");
    EXPECT_EQ(Color("", {{62, 250}}), "RGB(51,51,51)");
    EXPECT_EQ(Color("", {{62, 255}}), "RGB(255,255,255)");
}

TEST(StrokeColor, Above256IsWhite)
{
    const std::string tables = Tables({{.name = "A", .color = "1"}});
    for (const char* color : {"257", "1000", "2147483647"})
        EXPECT_EQ(Color(tables, {{8, "A"}, {62, color}}), "RGB(255,255,255)") << color;
}

TEST(StrokeColor, ByBlockByLayerAndNegativeIsTheLayers)
{
    const std::string tables = Tables({{.name = "A", .color = "3"}});
    for (const char* color : {"0", "256", "-1", "-3", "-256", "-257", "-2147483648", "red"})
        EXPECT_EQ(Color(tables, {{8, "A"}, {62, color}}), "RGB(0,255,0)") << color;
    EXPECT_EQ(Color(tables, {{8, "A"}}), "RGB(0,255,0)");
}

TEST(StrokeColor, WithoutItsLayerIsWhite)
{
    const std::string tables = Tables({{.name = "Walls", .color = "1"}});
    for (const char* color : {"0", "256", "-1"}) {
        EXPECT_EQ(Color(tables, {{8, "Doors"}, {62, color}}), "RGB(255,255,255)") << color;
        EXPECT_EQ(Color(tables, {{8, "WALLS"}, {62, color}}), "RGB(255,255,255)") << color;
        EXPECT_EQ(Color(tables, {{62, color}}), "RGB(255,255,255)") << color;
    }
}

TEST(StrokeColor, OfALayerOffOrOutOfRangeIsWhite)
{
    for (const char* color : {"-3", "0", "256", "257", "-256"})
        EXPECT_EQ(Color(Tables({{.name = "A", .color = color}}), {{8, "A"}}), "RGB(255,255,255)") << color;
    EXPECT_EQ(Color(Tables({{.name = "A", .color = "250"}}), {{8, "A"}}), "RGB(51,51,51)");
}

// A file writes 0xRRGGBB, but the low byte is printed first.
TEST(StrokeColor, OfATrueColorHasRedAndBlueExchanged)
{
    EXPECT_EQ(Color("", {{420, 255}}), "RGB(255,0,0)");
    EXPECT_EQ(Color("", {{420, 16711680}}), "RGB(0,0,255)");
    EXPECT_EQ(Color("", {{420, 31}}), "RGB(31,0,0)");
    EXPECT_EQ(Color("", {{420, 1193046}}), "RGB(86,52,18)") << "0x123456";
}

TEST(StrokeColor, OfATrueColorIsItsLowThreeBytes)
{
    EXPECT_EQ(Color("", {{420, -1}}), "RGB(255,255,255)");
    EXPECT_EQ(Color("", {{420, -16777216}}), "RGB(0,0,0)") << "0xFF000000 is a colour, and black";
    EXPECT_EQ(Color("", {{420, -16777195}}), "RGB(21,0,0)");
    EXPECT_EQ(Color("", {{420, "2130771712"}}), "RGB(0,255,0)") << "0x7F00FF00, less 255 of 256";
}

TEST(StrokeColor, OfATrueColorWinsOverNumberAndLayer)
{
    const std::string tables = Tables({{.name = "A", .color = "3"}});
    EXPECT_EQ(Color(tables, {{8, "A"}, {62, 1}, {420, 65280}}), "RGB(0,255,0)");
    EXPECT_EQ(Color(tables, {{8, "A"}, {62, 1}, {420, 0}}), "RGB(255,0,0)") << "0 is no true colour";
    EXPECT_EQ(Color(tables, {{8, "A"}, {420, 0}}), "RGB(0,255,0)");
}

TEST(StrokeColor, OfTwoLayersOfOneNameIsTheFirsts)
{
    const std::string tables = Tables({{.name = "A", .color = "3"}, {.name = "A", .color = "1"}});
    EXPECT_EQ(Color(tables, {{8, "A"}}), "RGB(0,255,0)");
}

TEST(StrokeDashes, AreTheLengthsOfTheEntitysLineTypeWithoutSigns)
{
    const std::string tables = Tables({}, {{.name = "DASHDOT", .dashes = {"0.5", "-0.25", "0"}}});
    EXPECT_EQ(Dashes(tables, {{6, "DASHDOT"}}), "0.500000,0.250000,0.000000");
}

TEST(StrokeDashes, OfOneLengthHaveNoComma)
{
    EXPECT_EQ(Dashes(Tables({}, {{.name = "A", .dashes = {"-12.5"}}}), {{6, "A"}}), "12.500000");
}

TEST(StrokeDashes, OfALineTypeWithoutLengthsAreEmpty)
{
    EXPECT_EQ(Dashes(Tables({}, {{.name = "CONTINUOUS", .dashes = {}}}), {{6, "CONTINUOUS"}}), "");
}

TEST(StrokeDashes, AreTheLayersWhereTheEntityNamesNoLineType)
{
    const std::string tables =
        Tables({{.name = "Walls", .lineType = "DOT"}}, {{.name = "DOT", .dashes = {"0", "-2"}}});
    EXPECT_EQ(Dashes(tables, {{8, "Walls"}}), "0.000000,2.000000");
    EXPECT_EQ(Dashes(tables, {{8, "Doors"}}), "");
    EXPECT_EQ(Dashes(tables, {}), "");
}

TEST(StrokeDashes, OfALayerWithoutALineTypeAreEmpty)
{
    EXPECT_EQ(Dashes(Tables({{.name = "Walls"}}, {{.name = "DOT", .dashes = {"1"}}}), {{8, "Walls"}}), "");
}

TEST(StrokeDashes, OfAMissingLineTypeAreEmptyWhateverTheLayers)
{
    const std::string tables =
        Tables({{.name = "Walls", .lineType = "DOT"}, {.name = "Doors", .lineType = "GONE"}},
               {{.name = "DOT", .dashes = {"1"}}});
    EXPECT_EQ(Dashes(tables, {{8, "Walls"}, {6, "GONE"}}), "");
    EXPECT_EQ(Dashes(tables, {{8, "Walls"}, {6, "dot"}}), "") << "names of different case are different";
    EXPECT_EQ(Dashes(tables, {{8, "Doors"}}), "");
}

TEST(StrokeDashes, TreatByLayerAndContinuousAsNamesLikeAnyOther)
{
    const std::string tables =
        Tables({{.name = "Walls", .lineType = "DOT"}}, {{.name = "DOT", .dashes = {"1"}},
                                                        {.name = "ByLayer", .dashes = {"2"}},
                                                        {.name = "Continuous", .dashes = {"3"}}});
    EXPECT_EQ(Dashes(tables, {{8, "Walls"}, {6, "ByLayer"}}), "2.000000");
    EXPECT_EQ(Dashes(tables, {{8, "Walls"}, {6, "Continuous"}}), "3.000000");
    EXPECT_EQ(Dashes(tables, {{8, "Walls"}, {6, "ByBlock"}}), "");
}

TEST(StrokeDashes, AreNeitherScaledByTheImportNorByTheEntity)
{
    const std::string tables = Tables({}, {{.name = "DOT", .dashes = {"1", "-1"}}});
    EXPECT_EQ(Dashes(tables, {{6, "DOT"}, {48, 3}}, 10), "1.000000,1.000000");
}

TEST(StrokeDashes, OfManyLengthsAreAllThere)
{
    LineType lineType{.name = "LONG", .dashes = {}};
    std::string expected;
    for (int i = 0; i < 300; ++i) {
        lineType.dashes.push_back(i % 2 == 0 ? "1.5" : "-1e3");
        expected += std::string(i == 0 ? "" : ",") + (i % 2 == 0 ? "1.500000" : "1000.000000");
    }
    EXPECT_EQ(Dashes(Tables({}, {lineType}), {{6, "LONG"}}), expected);
}

TEST(StrokeDashes, PrintInfiniteLengths)
{
    EXPECT_EQ(Dashes(Tables({}, {{.name = "A", .dashes = {"-1e400", "1e308"}}}), {{6, "A"}}).substr(0, 8),
              "inf,1000");
}

TEST(Visibility, IsSetAfterTheRestAndOnlyForTheEntityThatIsInvisible)
{
    EXPECT_EQ(TraceOf(Drawing("", Line({}) + Line({{60, 1}}) + Line({}))),
              "qlmCreateLine(ctx, \"\", 0, -0, 0, -0, 0, 0) = n1\n" + Style("n1") +
                  "qlmCreateLine(ctx, \"\", 0, -0, 0, -0, 0, 0) = n2\n" + Style("n2", {.hidden = true}) +
                  "qlmCreateLine(ctx, \"\", 0, -0, 0, -0, 0, 0) = n3\n" + Style("n3"));
}

// Every combination of what a style depends on, in one drawing and in another order, has the style that it
// has alone.
TEST(StyleTexts, AreNotMixedUpBetweenEntities)
{
    const std::string tables =
        Tables({{.name = "A", .color = "1", .lineType = "DOT", .lineWeight = "50"},
                {.name = "B", .color = "2", .lineType = "DASH", .lineWeight = "70"}},
               {{.name = "DOT", .dashes = {"0", "-1"}}, {.name = "DASH", .dashes = {"4", "-2", "4"}}});
    std::vector<std::string> lines, styles;
    for (const char* layer : {"A", "B", "", "NONE"})
        for (const char* lineType : {"", "DOT", "DASH", "A"})
            for (const char* color : {"0", "1", "5", "256"})
                for (const char* weight : {"-1", "0", "25", "256"})
                    for (const char* trueColor : {"0", "1", "5"})
                        lines.push_back(
                            Line({{8, layer}, {6, lineType}, {62, color}, {370, weight}, {420, trueColor}}));
    const auto stylesOf = [](std::string trace) {
        std::vector<std::string> result;
        while (!trace.empty()) {
            const std::size_t next = std::min(trace.find("qlmCreateLine", 1), trace.size());
            const std::string call = trace.substr(0, next);
            result.emplace_back();
            for (std::size_t at = call.find(", \"stroke"); at != std::string::npos;
                 at = call.find(", \"stroke", at + 1))
                result.back() += call.substr(at, call.find('\n', at) - at);
            trace.erase(0, next);
        }
        return result;
    };
    std::string forwards, backwards;
    for (const std::string& line : lines) {
        styles.push_back(stylesOf(TraceOf(Drawing(tables, line))).at(0));
        forwards += line;
        backwards = line + backwards;
    }
    EXPECT_EQ(stylesOf(TraceOf(Drawing(tables, forwards))), styles);
    std::reverse(styles.begin(), styles.end());
    EXPECT_EQ(stylesOf(TraceOf(Drawing(tables, backwards))), styles);
}

// Of so many styles about a dozen pairs have the same hash of 32 bits.
TEST(StyleTexts, OfTheSameHashAreKeptApart)
{
    constexpr std::int32_t kStyles = 300'000;
    CDxfStyleTexts styles;
    std::int32_t made = 0;
    DXF_GRAPHIC_BASE entity;
    for (int round = 0; round < 2; ++round)
        for (entity.m_nTrueColor = 0; entity.m_nTrueColor < kStyles; ++entity.m_nTrueColor)
            styles.Find(entity, [&](const DXF_GRAPHIC_BASE&) {
                ++made;
                return DXF_STYLE_TEXTS{};
            });
    EXPECT_EQ(made, kStyles);
}

// The styles are kept in a table: colours that follow each other fall into slots side by side.
TEST(StyleTexts, OfManyTrueColorsAreEachTheirOwn)
{
    constexpr int kColors = 2000;
    std::string lines;
    std::vector<std::string> expected, strokes;
    for (int round = 0; round < 2; ++round)
        for (int color = 1; color <= kColors; ++color) {
            lines += Line({{420, std::to_string(color)}});
            expected.push_back("RGB(" + std::to_string(color % 256) + "," + std::to_string(color / 256) +
                               ",0)");
        }
    const std::string trace = TraceOf(Drawing("", lines));
    const std::string name = "\"stroke\", \"";
    for (std::size_t at = trace.find(name); at != std::string::npos; at = trace.find(name, at + 1)) {
        const std::size_t value = at + name.size();
        strokes.push_back(trace.substr(value, trace.find('"', value) - value));
    }
    EXPECT_EQ(strokes, expected);
}
