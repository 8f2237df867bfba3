#include "prepare/write/StandardObjects.h"

#include "prepare/write/StandardDecimals.h"
#include "prepare/write/StandardTables.h"

#include <utility>

namespace prepare {

namespace {

void BeginDictionary(PairWriter& pairs, const char* type, std::uint64_t handle, std::uint64_t owner)
{
    pairs.Text(0, type);
    pairs.Handle(5, handle);
    pairs.Handle(330, owner);
    pairs.Text(100, "AcDbDictionary");
    pairs.Integer(281, 1);
}

void WriteEntry(PairWriter& pairs, const char* name, std::uint64_t handle)
{
    pairs.Text(3, name);
    pairs.Handle(350, handle);
}

// An A3 sheet without margins, in millimetres, at a scale of 1:1.
void WritePlotSettings(PairWriter& pairs, bool isModel)
{
    constexpr int kModelType = 1024, kUsesWeights = 128, kUsesPlotStyles = 32, kDrawsViewportsFirst = 512;
    pairs.Text(100, "AcDbPlotSettings");
    for (const int code : {1, 2, 4, 6})
        pairs.Text(code, "");
    for (const int code : {40, 41, 42, 43})
        pairs.Integer(code, 0);
    pairs.Integer(44, 420);
    pairs.Integer(45, 297);
    for (const int code : {46, 47, 48, 49, 140, 141})
        pairs.Integer(code, 0);
    pairs.Integer(142, 1);
    pairs.Integer(143, 1);
    pairs.Integer(70, kUsesWeights | kUsesPlotStyles | kDrawsViewportsFirst | (isModel ? kModelType : 0));
    pairs.Integer(72, 1);
    pairs.Integer(73, 0);
    pairs.Integer(74, 5);
    pairs.Text(7, "");
    pairs.Integer(75, 16);
    pairs.Integer(147, 1);
    pairs.Integer(148, 0);
    pairs.Integer(149, 0);
}

void WriteAxes(PairWriter& pairs)
{
    for (const auto& [code, point] :
         {std::pair(13, Point2{0, 0}), std::pair(16, Point2{1, 0}), std::pair(17, Point2{0, 1})}) {
        WritePoint2(pairs, code, point, 0);
        pairs.Integer(code + 20, 0);
    }
    pairs.Integer(76, 0);
}

void WriteLayout(PairWriter& pairs, bool isModel, const Box& extents, int decimals)
{
    pairs.Text(0, "LAYOUT");
    pairs.Handle(5, isModel ? kModelLayout : kPaperLayout);
    pairs.Handle(330, kLayoutDictionary);
    WritePlotSettings(pairs, isModel);
    pairs.Text(100, "AcDbLayout");
    pairs.Text(1, isModel ? "Model" : "Layout1");
    pairs.Integer(70, 1);
    pairs.Integer(71, isModel ? 0 : 1);
    WritePoint2(pairs, 10, {0, 0}, 0);
    WritePoint2(pairs, 11, {420, 297}, 0);
    WritePoint2(pairs, 12, {0, 0}, 0);
    pairs.Integer(32, 0);
    const bool hasExtents = isModel && !extents.IsEmpty();
    for (const auto& [code, point] : {std::pair(14, hasExtents ? extents.min : Point2{}),
                                      std::pair(15, hasExtents ? extents.max : Point2{})}) {
        WritePoint3(pairs, code, point, DecimalsOfExtents(decimals));
    }
    pairs.Integer(146, 0);
    WriteAxes(pairs);
    pairs.Handle(330, isModel ? kModelRecord : kPaperRecord);
}

} // namespace

void WriteStandardObjects(PairWriter& pairs, const Box& extents, int decimals)
{
    pairs.Text(0, "SECTION");
    pairs.Text(2, "OBJECTS");
    BeginDictionary(pairs, "DICTIONARY", kRootDictionary, 0);
    WriteEntry(pairs, "ACAD_GROUP", kGroupDictionary);
    WriteEntry(pairs, "ACAD_LAYOUT", kLayoutDictionary);
    WriteEntry(pairs, "ACAD_PLOTSTYLENAME", kPlotStyleDictionary);
    BeginDictionary(pairs, "DICTIONARY", kGroupDictionary, kRootDictionary);
    BeginDictionary(pairs, "DICTIONARY", kLayoutDictionary, kRootDictionary);
    WriteEntry(pairs, "Model", kModelLayout);
    WriteEntry(pairs, "Layout1", kPaperLayout);
    BeginDictionary(pairs, "ACDBDICTIONARYWDFLT", kPlotStyleDictionary, kRootDictionary);
    WriteEntry(pairs, "Normal", kPlotStyle);
    pairs.Text(100, "AcDbDictionaryWithDefault");
    pairs.Handle(340, kPlotStyle);
    pairs.Text(0, "ACDBPLACEHOLDER");
    pairs.Handle(5, kPlotStyle);
    pairs.Handle(330, kPlotStyleDictionary);
    WriteLayout(pairs, true, extents, decimals);
    WriteLayout(pairs, false, extents, decimals);
    pairs.Text(0, "ENDSEC");
}

} // namespace prepare
