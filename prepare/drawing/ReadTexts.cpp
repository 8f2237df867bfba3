#include "prepare/drawing/ReadTexts.h"

#include "prepare/drawing/EntityFields.h"

#include <utility>

namespace prepare {

namespace {

constexpr auto kText = EntityFields<Text>({
    {1, &Text::text},
    {7, &Text::style},
    {10, &Text::point},
    {11, &Text::alignment, &Text::hasAlignment},
    {40, &Text::height},
    {41, &Text::widthFactor},
    {50, &Text::rotation},
    {51, &Text::oblique},
    {71, &Text::generation},
    {72, &Text::horizontal},
    {73, &Text::vertical},
});

// The MTEXT that an attribute of several lines embeds: only its text counts.
struct EmbeddedText {
    std::string text;
};

constexpr auto kEmbeddedText = Fields<EmbeddedText>({
    Field<EmbeddedText>(1, &EmbeddedText::text).Joined(),
    Field<EmbeddedText>(3, &EmbeddedText::text).Joined(),
    {101, [](RecordReader& reader, EmbeddedText&, CDxfLine) { reader.SkipFields(); }},
});

void ReadEmbeddedText(RecordReader& reader, Text& text, CDxfLine)
{
    EmbeddedText embedded;
    reader.Read(embedded, kEmbeddedText);
    text.hasMText = true;
    text.generation = 0; // 71 says before it that the attribute has several lines
    if (!embedded.text.empty())
        text.text = std::move(embedded.text);
}

constexpr auto kAttribute = EntityFields<Text>({
    {1, &Text::text},
    {2, &Text::tag},
    {7, &Text::style},
    {10, &Text::point},
    {11, &Text::alignment, &Text::hasAlignment},
    {40, &Text::height},
    {41, &Text::widthFactor},
    {50, &Text::rotation},
    {51, &Text::oblique},
    {70, &Text::flags},
    {71, &Text::generation},
    {72, &Text::horizontal},
    {74, &Text::vertical},
    {101, ReadEmbeddedText},
});

struct Columns {
    std::int32_t type = 0;
    std::int32_t count = 0;
    std::int32_t areReversed = 0;
    double width = 0;
    double gutter = 0;
    double definedHeight = 0;
    std::vector<double> heights;
};

constexpr auto kColumns = Fields<Columns>({
    {41, &Columns::definedHeight},
    {44, &Columns::width},
    {45, &Columns::gutter},
    {46, &Columns::heights},
    {71, &Columns::type},
    {72, &Columns::count},
    {74, &Columns::areReversed},
});

// Of the embedded object only the columns count: its other codes repeat the MTEXT's in another order.
void ReadColumns(RecordReader& reader, MText& text, CDxfLine)
{
    Columns columns;
    reader.Read(columns, kColumns);
    text.columnType = columns.type;
    text.columns = columns.count;
    text.columnsFlowReversed = columns.areReversed;
    text.columnWidth = columns.width;
    text.columnGutter = columns.gutter;
    text.definedHeight = columns.definedHeight;
    text.columnHeights = std::move(columns.heights);
}

// Up to R2004 columns are extended data: in sections with names, each value after the code that it would
// have.
class LinkedColumnsReader {
public:
    LinkedColumnsReader(RecordReader& reader, MText& text) : m_reader(reader), m_text(text) {}

    void Take()
    {
        switch (m_reader.Code()) {
        case 1000:
            Enter(Trim(m_reader.Value()));
            break;
        case 1005:
            m_text.linkedColumns += m_isInSection;
            if (m_isInBorders) // the frame is an entity of its own
                m_text.fill &= ~MText::kFrame;
            break;
        case 1040:
        case 1070:
            if (m_isInSection)
                TakeNumber();
            break;
        default:
            break;
        }
    }

private:
    void Enter(std::string_view name)
    {
        m_isInBorders = name == "ACAD_MTEXT_TEXT_BORDERS_BEGIN";
        m_isInSection = name == "ACAD_MTEXT_COLUMN_INFO_BEGIN" || name == "ACAD_MTEXT_COLUMNS_BEGIN" ||
                        name == "ACAD_MTEXT_DEFINED_HEIGHT_BEGIN";
        m_code = 0;
    }

    void TakeNumber()
    {
        if (m_code != 0)
            Store(std::exchange(m_code, 0));
        else if (m_reader.Code() == 1070)
            m_code = m_reader.Integer(m_reader.Value());
        else // heights follow their number
            m_reader.Append(m_text.columnHeights, m_reader.Real(m_reader.Value()));
    }

    void Store(std::int32_t code)
    {
        const CDxfLine value = m_reader.Value();
        switch (code) {
        case 46:
            m_text.definedHeight = m_reader.Real(value);
            break;
        case 48:
            m_text.columnWidth = m_reader.Real(value);
            break;
        case 49:
            m_text.columnGutter = m_reader.Real(value);
            break;
        case 75:
            m_text.columnType = m_reader.Integer(value);
            break;
        case 76:
            m_text.columns = m_reader.Integer(value);
            break;
        case 78:
            m_text.columnsFlowReversed = m_reader.Integer(value);
            break;
        default:
            break;
        }
    }

    RecordReader& m_reader;
    MText& m_text;
    bool m_isInSection = false;
    bool m_isInBorders = false;
    std::int32_t m_code = 0; // of the value that follows; 0: that is a code
};

void ReadExtendedData(RecordReader& reader, MText& text, CDxfLine application)
{
    if (Trim(application) != "ACAD")
        return;
    LinkedColumnsReader columns(reader, text);
    while (reader.NextField()) {
        if (reader.Code() == 1001)
            return reader.Unread();
        columns.Take();
    }
}

void ReadRotation(RecordReader& reader, MText& text, CDxfLine value)
{
    text.rotation = reader.Real(value);
    text.hasDirection = false;
}

constexpr auto kMText = EntityFields<MText>({
    Field<MText>(1, &MText::text).Joined(),
    Field<MText>(3, &MText::text).Joined(),
    {7, &MText::style},
    {10, &MText::point},
    {11, &MText::direction, &MText::hasDirection},
    {40, &MText::height},
    {41, &MText::width},
    {44, &MText::spacing},
    {45, &MText::fillScale},
    {46, &MText::definedHeight},
    {48, &MText::columnWidth},
    {49, &MText::columnGutter},
    {50, ReadRotation},
    {63, &MText::fillColour, &MText::hasFillColour},
    {71, &MText::attachment},
    {72, &MText::flow},
    {73, &MText::spacingStyle},
    {75, &MText::columnType},
    {76, &MText::columns},
    {78, &MText::columnsFlowReversed},
    {90, &MText::fill},
    {101, ReadColumns},
    {421, &MText::fillTrueColour},
    {1001, ReadExtendedData},
});

} // namespace

std::unique_ptr<Entity> ReadText(RecordReader& reader)
{
    return ReadByTable<kText, Text>(reader);
}

std::unique_ptr<Entity> ReadAttribute(RecordReader& reader)
{
    return ReadByTable<kAttribute, Text>(reader);
}

std::unique_ptr<Entity> ReadMTextRecord(RecordReader& reader)
{
    return ReadByTable<kMText, MText>(reader);
}

} // namespace prepare
