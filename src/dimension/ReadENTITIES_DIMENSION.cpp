// DIMENSION: the codes before the first subclass marker, and a part for each marker.
//
// The parts are read in a loop. A marker ends the part before it and the result of a part's reader does not
// matter after the first marker, so the depth of the stack does not depend on the number of markers.
#include "dimension/DXF_GRAPHIC_DIMENSION_PARTS.h"
#include "entities/DXF_GRAPHIC_DIMENSION.h"
#include "entities/ReadEntity.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <type_traits>

namespace {

// Before the first marker even a code 0 goes to the codes that entities share, where it is reported: only a
// marker ends this part (quirk 105).
constexpr auto kEntityFields = DxfFields<DXF_GRAPHIC_DIMENSION>({End(100)});

// Steps over the overrides in extended data: "1000", "DSTYLE", "1002", "{", ..., "1002", "}". None is kept.
// The lines in it are not paired, so a value "1002" ends the list too (quirk 107). The line after the closing
// "1002" is part of the list, even where the file ends before it. The message has another reader's name
// (quirk 125).
template <class Part>
void SkipDSTYLE(CDxfRead& reader, CDxfStream& stream, Part&, CDxfLine value)
{
    if (Trim(value) != "DSTYLE")
        return;
    const std::string_view line = reader.ReadTrimmed(stream);
    if (line != "1002") {
        reader.Report(DXF_ERROR_DSTYLE, L"ReadENTITIES_DIMENSION() DSTYLE 1002 not found '%s', Line:%d",
                      {line, reader.lineCount});
        reader.ReadLine(stream);
        return;
    }
    reader.ReadLine(stream); // "{"
    while (!stream.eof())
        if (reader.ReadTrimmed(stream) == "1002") {
            reader.ReadLine(stream); // "}"
            return;
        }
}

// The row of the parts that step over those lists.
struct OverridesRow {
    template <class Part>
    static consteval std::array<DXF_FIELD<Part>, 1> Rows()
    {
        return {{{1000, SkipDSTYLE<Part>}}};
    }
};
constexpr OverridesRow kOverrides;

using SKIPPED = DXF_GRAPHIC_DIMENSION_Entity;
constexpr auto kSkippedFields = DxfFields<SKIPPED>({End(0), End(100)});

using DIMENSION = DXF_GRAPHIC_DIMENSION_Dimension;
constexpr auto kDimensionFields = DxfFields<DIMENSION>({
    End(0),
    End(100),
    KeptOnce(2, &DIMENSION::m_strBlockName),
    {10, &DIMENSION::m_dDefPointX},
    {20, &DIMENSION::m_dDefPointY},
    {30, &DIMENSION::m_dDefPointZ},
    {11, &DIMENSION::m_dTextMidX},
    {21, &DIMENSION::m_dTextMidY},
    {31, &DIMENSION::m_dTextMidZ},
    {70, &DIMENSION::m_nDimType},
    {71, &DIMENSION::m_nAttachment},
    {41, &DIMENSION::m_dLineSpacing},
    {42, &DIMENSION::m_dMeasurement},
    {1, &DIMENSION::m_strText},
    {53, &DIMENSION::m_dTextRotation},
    {51, &DIMENSION::m_dHorizontalDir},
    {210, &DIMENSION::m_dExtrusionX},
    {220, &DIMENSION::m_dExtrusionY},
    {230, &DIMENSION::m_dExtrusionZ},
    KeptOnce(3, &DIMENSION::m_strStyle),
});

using ALIGNED = DXF_GRAPHIC_DIMENSION_AlignedDimension;
constexpr auto kAlignedFields = DxfFields<ALIGNED>({
    End(0),
    End(100),
    {12, &ALIGNED::m_dClonePointX},
    {22, &ALIGNED::m_dClonePointY},
    {32, &ALIGNED::m_dClonePointZ},
    {13, &ALIGNED::m_dExtLine1X},
    {23, &ALIGNED::m_dExtLine1Y},
    {33, &ALIGNED::m_dExtLine1Z},
    {14, &ALIGNED::m_dExtLine2X},
    {24, &ALIGNED::m_dExtLine2Y},
    {34, &ALIGNED::m_dExtLine2Z},
    {50, &ALIGNED::m_dRotation},
    {52, &ALIGNED::m_dOblique},
});

using ANGULAR = DXF_GRAPHIC_DIMENSION_ANGULAR;

constexpr DXF_FIELD<ANGULAR> kAngularRows[] = {
    End(0),
    End(100),
    {13, &ANGULAR::m_dExtLine1X},
    {23, &ANGULAR::m_dExtLine1Y},
    {33, &ANGULAR::m_dExtLine1Z},
    {14, &ANGULAR::m_dExtLine2X},
    {24, &ANGULAR::m_dExtLine2Y},
    {34, &ANGULAR::m_dExtLine2Z},
    {15, &ANGULAR::m_dArcPointX},
    {25, &ANGULAR::m_dArcPointY},
    {35, &ANGULAR::m_dArcPointZ},
    {16, &ANGULAR::m_dDimArcX},
    {26, &ANGULAR::m_dDimArcY},
    {36, &ANGULAR::m_dDimArcZ},
};

// The two-line part steps over DSTYLE lists; in the three-point part a 1000 is a pair like any other.
constexpr auto k3PointAngularFields = DxfFields<ANGULAR>(kAngularRows);
constexpr auto k2LineAngularFields = DxfFields<ANGULAR>(kAngularRows, kOverrides);

using ROTATED = DXF_GRAPHIC_DIMENSION_RotatedDimension;
constexpr auto kRotatedFields = DxfFields<ROTATED>({End(0), End(100)}, kOverrides);

using ORDINATE = DXF_GRAPHIC_DIMENSION_OrdinateDimension;
constexpr auto kOrdinateFields = DxfFields<ORDINATE>({
    End(0),
    End(100),
    {13, &ORDINATE::m_dExtLine1X},
    {23, &ORDINATE::m_dExtLine1Y},
    {33, &ORDINATE::m_dExtLine1Z},
    {14, &ORDINATE::m_dExtLine2X},
    {24, &ORDINATE::m_dExtLine2Y},
    {34, &ORDINATE::m_dExtLine2Z},
});

using CHORD = DXF_GRAPHIC_DIMENSION_CHORD;
constexpr auto kChordFields = DxfFields<CHORD>({
    End(0),
    End(100),
    {15, &CHORD::m_dChordPointX},
    {25, &CHORD::m_dChordPointY},
    {35, &CHORD::m_dChordPointZ},
    {40, &CHORD::m_dLeaderLength},
});

// Makes a part, puts it into the dimension at once and reads its pairs. Every part's reader prints the name
// of the reader that skips (quirk 124).
template <class Part, const auto& table>
DXF_END ReadPart(CDxfRead& reader, CDxfStream& stream, DXF_GRAPHIC_DIMENSION& dimension)
{
    Part* const part = reader.store.New<Part>();
    dimension.m_parts.Add(reader.store, part);
    typename std::remove_cvref_t<decltype(table)>::RecordType& fields = *part;
    const auto ignore = [](std::int32_t, std::string_view) {};
    return reader.ReadFields(stream, fields, table,
                             L"Read_UNKNOWN() Failed to read integer from '%s', Line:%d", ignore);
}

struct PartReader {
    std::string_view marker;
    DXF_END (*read)(CDxfRead& reader, CDxfStream& stream, DXF_GRAPHIC_DIMENSION& dimension);
};

constexpr PartReader kParts[] = {
    {"AcDbEntity", ReadPart<SKIPPED, kSkippedFields>},
    {"AcDbDimension", ReadPart<DIMENSION, kDimensionFields>},
    {"AcDbAlignedDimension", ReadPart<ALIGNED, kAlignedFields>},
    {"AcDb3PointAngularDimension",
     ReadPart<DXF_GRAPHIC_DIMENSION_3PointAngularDimension, k3PointAngularFields>},
    {"AcDb2LineAngularDimension", ReadPart<DXF_GRAPHIC_DIMENSION_2LineAngularDimension, k2LineAngularFields>},
    {"AcDbRotatedDimension", ReadPart<ROTATED, kRotatedFields>},
    {"AcDbOrdinateDimension", ReadPart<ORDINATE, kOrdinateFields>},
    {"AcDbRadialDimension", ReadPart<DXF_GRAPHIC_DIMENSION_RadialDimension, kChordFields>},
    {"AcDbDiametricDimension", ReadPart<DXF_GRAPHIC_DIMENSION_DiametricDimension, kChordFields>},
};

} // namespace

// True once a marker has been met, whatever follows it.
bool CDxfRead::ReadENTITIES_DIMENSION(CDxfStream& stream, DXF_ENTITY_LIST& list)
{
    DXF_GRAPHIC_DIMENSION* const dimension = NewEntity<DXF_GRAPHIC_DIMENSION>(*this, list);
    const auto common = [&](std::int32_t code, CDxfLine value) {
        ReadENTITIES_COMMON(code, value, *dimension, stream);
    };
    if (ReadFields(stream, *dimension, kEntityFields, DXF_BAD_CODE<DXF_GRAPHIC_DIMENSION>::kMessage,
                   common) != DXF_END_MARKER)
        return false;
    ReadENTITIES_DIMENSION_SWITCH(stream, *dimension, ReadTrimmed(stream));
    return true;
}

// True when the marker's part ended at a "0" or at a further marker. An unknown marker ends the dimension in
// the middle of its pairs (quirk 106).
bool CDxfRead::ReadENTITIES_DIMENSION_SWITCH(CDxfStream& stream, DXF_GRAPHIC_DIMENSION& dimension,
                                             std::string_view marker)
{
    for (bool metFurtherMarker = false;; metFurtherMarker = true) { // a part a round
        const auto part = std::find_if(std::begin(kParts), std::end(kParts),
                                       [&](const PartReader& entry) { return entry.marker == marker; });
        if (part == std::end(kParts)) {
            Report(DXF_ERROR_MARKER, L"ReadENTITIES_DIMENSION_SWITCH() Unknown Dimension type '%s', Line:%d",
                   {marker, lineCount});
            return metFurtherMarker;
        }
        const DXF_END end = part->read(*this, stream, dimension);
        if (end != DXF_END_MARKER)
            return metFurtherMarker || end == DXF_END_ZERO;
        marker = ReadTrimmed(stream);
    }
}
