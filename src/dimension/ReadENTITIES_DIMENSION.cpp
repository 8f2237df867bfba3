// DIMENSION: the codes before the first subclass marker, and a part for each marker.
//
// The parts are read in a loop. A marker ends the part before it and the result of a part's reader matters to
// no one behind the first marker, so the depth of the stack does not depend on the number of markers.
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
constexpr auto kEntityFields =
    DxfFields<DXF_GRAPHIC_DIMENSION>::Table({DxfFields<DXF_GRAPHIC_DIMENSION>::End(100)});

// Steps over the overrides in extended data: "1000", "DSTYLE", "1002", "{", ..., "1002", "}". None is kept.
// The lines in it are not paired, so a value "1002" ends the list too (quirk 107). The line
// after the closing "1002" is part of the list, even where the file ends before it.
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

using SKIPPED = DXF_GRAPHIC_DIMENSION_Entity;
using SKIPPED_FIELDS = DxfFields<SKIPPED>;
constexpr auto kSkippedFields = SKIPPED_FIELDS::Table({SKIPPED_FIELDS::End(0), SKIPPED_FIELDS::End(100)});

using DIMENSION = DXF_GRAPHIC_DIMENSION_Dimension;
using DIMENSION_FIELDS = DxfFields<DIMENSION>;
constexpr auto kDimensionFields = DIMENSION_FIELDS::Table({
    DIMENSION_FIELDS::End(0),
    DIMENSION_FIELDS::End(100),
    DIMENSION_FIELDS::Name(2, &DIMENSION::m_strBlockName),
    DIMENSION_FIELDS::Field(10, &DIMENSION::m_dDefPointX),
    DIMENSION_FIELDS::Field(20, &DIMENSION::m_dDefPointY),
    DIMENSION_FIELDS::Field(30, &DIMENSION::m_dDefPointZ),
    DIMENSION_FIELDS::Field(11, &DIMENSION::m_dTextMidX),
    DIMENSION_FIELDS::Field(21, &DIMENSION::m_dTextMidY),
    DIMENSION_FIELDS::Field(31, &DIMENSION::m_dTextMidZ),
    DIMENSION_FIELDS::Field(70, &DIMENSION::m_nDimType),
    DIMENSION_FIELDS::Field(71, &DIMENSION::m_nAttachment),
    DIMENSION_FIELDS::Field(41, &DIMENSION::m_dLineSpacing),
    DIMENSION_FIELDS::Field(42, &DIMENSION::m_dMeasurement),
    DIMENSION_FIELDS::Field(1, &DIMENSION::m_strText),
    DIMENSION_FIELDS::Field(53, &DIMENSION::m_dTextRotation),
    DIMENSION_FIELDS::Field(51, &DIMENSION::m_dHorizontalDir),
    DIMENSION_FIELDS::Field(210, &DIMENSION::m_dExtrusionX),
    DIMENSION_FIELDS::Field(220, &DIMENSION::m_dExtrusionY),
    DIMENSION_FIELDS::Field(230, &DIMENSION::m_dExtrusionZ),
    DIMENSION_FIELDS::Name(3, &DIMENSION::m_strStyle),
});

using ALIGNED = DXF_GRAPHIC_DIMENSION_AlignedDimension;
using ALIGNED_FIELDS = DxfFields<ALIGNED>;
constexpr auto kAlignedFields = ALIGNED_FIELDS::Table({
    ALIGNED_FIELDS::End(0),
    ALIGNED_FIELDS::End(100),
    ALIGNED_FIELDS::Field(12, &ALIGNED::m_dClonePointX),
    ALIGNED_FIELDS::Field(22, &ALIGNED::m_dClonePointY),
    ALIGNED_FIELDS::Field(32, &ALIGNED::m_dClonePointZ),
    ALIGNED_FIELDS::Field(13, &ALIGNED::m_dExtLine1X),
    ALIGNED_FIELDS::Field(23, &ALIGNED::m_dExtLine1Y),
    ALIGNED_FIELDS::Field(33, &ALIGNED::m_dExtLine1Z),
    ALIGNED_FIELDS::Field(14, &ALIGNED::m_dExtLine2X),
    ALIGNED_FIELDS::Field(24, &ALIGNED::m_dExtLine2Y),
    ALIGNED_FIELDS::Field(34, &ALIGNED::m_dExtLine2Z),
    ALIGNED_FIELDS::Field(50, &ALIGNED::m_dRotation),
    ALIGNED_FIELDS::Field(52, &ALIGNED::m_dOblique),
});

using ANGULAR = DXF_GRAPHIC_DIMENSION_ANGULAR;
using ANGULAR_FIELDS = DxfFields<ANGULAR>;

// The two-line part steps over DSTYLE lists; in the three-point part a 1000 is a pair like any other.
template <std::size_t extra>
consteval auto AngularFields(const DXF_FIELD<ANGULAR> (&more)[extra])
{
    const DXF_FIELD<ANGULAR> fields[] = {
        ANGULAR_FIELDS::End(0),
        ANGULAR_FIELDS::Field(13, &ANGULAR::m_dExtLine1X),
        ANGULAR_FIELDS::Field(23, &ANGULAR::m_dExtLine1Y),
        ANGULAR_FIELDS::Field(33, &ANGULAR::m_dExtLine1Z),
        ANGULAR_FIELDS::Field(14, &ANGULAR::m_dExtLine2X),
        ANGULAR_FIELDS::Field(24, &ANGULAR::m_dExtLine2Y),
        ANGULAR_FIELDS::Field(34, &ANGULAR::m_dExtLine2Z),
        ANGULAR_FIELDS::Field(15, &ANGULAR::m_dArcPointX),
        ANGULAR_FIELDS::Field(25, &ANGULAR::m_dArcPointY),
        ANGULAR_FIELDS::Field(35, &ANGULAR::m_dArcPointZ),
        ANGULAR_FIELDS::Field(16, &ANGULAR::m_dDimArcX),
        ANGULAR_FIELDS::Field(26, &ANGULAR::m_dDimArcY),
        ANGULAR_FIELDS::Field(36, &ANGULAR::m_dDimArcZ),
    };
    std::array<DXF_FIELD<ANGULAR>, std::size(fields) + extra> all{};
    std::copy(std::begin(more), std::end(more), std::copy(std::begin(fields), std::end(fields), all.begin()));
    return CDxfFieldTable<ANGULAR, std::size(fields) + extra>(all);
}

constexpr auto k3PointAngularFields = AngularFields({ANGULAR_FIELDS::End(100)});
constexpr auto k2LineAngularFields =
    AngularFields({ANGULAR_FIELDS::End(100), ANGULAR_FIELDS::Function(1000, SkipDSTYLE<ANGULAR>)});

using ROTATED = DXF_GRAPHIC_DIMENSION_RotatedDimension;
using ROTATED_FIELDS = DxfFields<ROTATED>;
constexpr auto kRotatedFields = ROTATED_FIELDS::Table(
    {ROTATED_FIELDS::End(0), ROTATED_FIELDS::End(100), ROTATED_FIELDS::Function(1000, SkipDSTYLE<ROTATED>)});

using ORDINATE = DXF_GRAPHIC_DIMENSION_OrdinateDimension;
using ORDINATE_FIELDS = DxfFields<ORDINATE>;
constexpr auto kOrdinateFields = ORDINATE_FIELDS::Table({
    ORDINATE_FIELDS::End(0),
    ORDINATE_FIELDS::End(100),
    ORDINATE_FIELDS::Field(13, &ORDINATE::m_dExtLine1X),
    ORDINATE_FIELDS::Field(23, &ORDINATE::m_dExtLine1Y),
    ORDINATE_FIELDS::Field(33, &ORDINATE::m_dExtLine1Z),
    ORDINATE_FIELDS::Field(14, &ORDINATE::m_dExtLine2X),
    ORDINATE_FIELDS::Field(24, &ORDINATE::m_dExtLine2Y),
    ORDINATE_FIELDS::Field(34, &ORDINATE::m_dExtLine2Z),
});

using CHORD = DXF_GRAPHIC_DIMENSION_CHORD;
using CHORD_FIELDS = DxfFields<CHORD>;
constexpr auto kChordFields = CHORD_FIELDS::Table({
    CHORD_FIELDS::End(0),
    CHORD_FIELDS::End(100),
    CHORD_FIELDS::Field(15, &CHORD::m_dChordPointX),
    CHORD_FIELDS::Field(25, &CHORD::m_dChordPointY),
    CHORD_FIELDS::Field(35, &CHORD::m_dChordPointZ),
    CHORD_FIELDS::Field(40, &CHORD::m_dLeaderLength),
});

// Makes a part, puts it into the dimension at once and reads its pairs. Every part's reader prints the name
// of the reader that skips (quirk 124).
template <class Part, const auto& table>
DXF_END ReadPart(CDxfRead& reader, CDxfStream& stream, DXF_GRAPHIC_DIMENSION& dimension)
{
    Part* const part = reader.store.New<Part>();
    dimension.m_parts.Add(reader.store, part);
    typename std::remove_cvref_t<decltype(table)>::RECORD& fields = *part;
    const auto ignore = [](std::int32_t, std::string_view) {};
    return reader.ReadFields(stream, fields, table,
                             L"Read_UNKNOWN() Failed to read integer from '%s', Line:%d", ignore);
}

struct PART_READER {
    std::string_view marker;
    DXF_END (*read)(CDxfRead& reader, CDxfStream& stream, DXF_GRAPHIC_DIMENSION& dimension);
};

constexpr PART_READER kParts[] = {
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
    if (ReadFields(stream, *dimension, kEntityFields,
                   L"ReadENTITIES_DIMENSION Failed to read integer from '%s', Line:%d",
                   common) != DXF_END_MARKER)
        return false;
    ReadENTITIES_DIMENSION_SWITCH(stream, *dimension, ReadTrimmed(stream));
    return true;
}

// True when the marker's part ended at a "0" or at a further marker.
bool CDxfRead::ReadENTITIES_DIMENSION_SWITCH(CDxfStream& stream, DXF_GRAPHIC_DIMENSION& dimension,
                                             std::string_view marker)
{
    for (bool metFurtherMarker = false;; metFurtherMarker = true) { // a part a round
        const auto part = std::find_if(std::begin(kParts), std::end(kParts),
                                       [&](const PART_READER& entry) { return entry.marker == marker; });
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
