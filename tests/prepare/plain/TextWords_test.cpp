// The texts of entities, for those who only read them.
#include "prepare/plain/TextWords.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

using Form = RawText::Form;

// "form text at x,y" of an entity's text.
std::string TextOf(const Entity& entity)
{
    const RawText raw = RawTextOf(entity);
    constexpr const char* kForms[] = {"line", "frame", "paragraphs"};
    return std::string(kForms[static_cast<int>(raw.form)]) + " " + raw.text + " at " +
           std::to_string(static_cast<int>(raw.place.x)) + "," +
           std::to_string(static_cast<int>(raw.place.y));
}

template <class Record>
Record RecordAt(Point3 Record::*place, const char* text = "words")
{
    Record record;
    record.*place = {3, 4, 5};
    record.extrusion = {0, 0, -1};
    if constexpr (requires { record.text; })
        record.text = text;
    return record;
}

TEST(TextWords, EachTypeHasItsFormAndItsPlaceInTheDrawing)
{
    EXPECT_EQ(TextOf(RecordAt<Text>(&Text::point)), "line words at -3,4");
    EXPECT_EQ(TextOf(RecordAt<MText>(&MText::point)), "paragraphs words at 3,4");
    EXPECT_EQ(TextOf(RecordAt<Dimension>(&Dimension::textPoint)), "paragraphs words at -3,4");
    EXPECT_EQ(TextOf(RecordAt<MultiLeader>(&MultiLeader::textPoint)), "paragraphs words at 3,4");
    EXPECT_EQ(TextOf(RecordAt<Tolerance>(&Tolerance::point)), "frame words at 3,4");
    Table table = RecordAt<Table>(&Table::point);
    table.cells = {"one", "", "two"};
    EXPECT_EQ(TextOf(table), "paragraphs one\\Ptwo at 3,4");
    EXPECT_EQ(TextOf(Line()), "line  at 0,0");
}

TEST(TextWords, AnAttributeOfSeveralLinesHasTheCodesOfAnMText)
{
    Text attribute = RecordAt<Text>(&Text::point, "one\\Ptwo");
    attribute.type = EntityType::Attrib;
    EXPECT_EQ(TextOf(attribute), "line one\\Ptwo at -3,4");
    attribute.hasMText = true;
    EXPECT_EQ(TextOf(attribute), "paragraphs one\\Ptwo at -3,4");
}

TEST(TextWords, EachFormHasCodesOfItsOwn)
{
    const Drawing drawing;
    EXPECT_EQ(PlainWordsOf({Form::Line, "%%c5%%v\\P", {}}, drawing), "\u00D85%%v\\P");
    EXPECT_EQ(PlainWordsOf({Form::Frame, "a%%vb", {}}, drawing), "a   b");
    EXPECT_EQ(PlainWordsOf({Form::Paragraphs, "a%%vb\\Pc", {}}, drawing), "a%%vb\nc");
}

} // namespace
} // namespace prepare
