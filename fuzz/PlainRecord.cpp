#include "PlainRecord.h"

#include "support/NumbersModel.h"

#include <cstddef>
#include <map>

namespace {

using Fields = std::map<std::string, std::string>;

void ReadGroup(std::string& value, std::string_view code, PlainLines& lines)
{
    while (!lines.IsAtEnd()) {
        const std::string line = lines.TrimmedLine();
        if (line != code)
            value += TextOf("\n") + TextOf(line);
        else if (lines.TrimmedLine() == "}")
            return;
    }
}

std::string SortedWith(const PlainRecord& record, Fields fields)
{
    for (std::size_t i = 0; i < record.values.size(); ++i)
        fields.emplace(record.kind->Fields()[i].name, record.values[i]);
    std::string text;
    for (const auto& [name, value] : fields)
        text.append(name).append("=").append(value).append("\n");
    return text;
}

} // namespace

PlainRecord::PlainRecord(const PlainKind& itsKind) : kind(&itsKind)
{
    for (const PlainField& field : itsKind.Fields())
        values.push_back(field.initial);
}

void PlainRecord::Store(int index, const std::string& line, PlainLines& lines)
{
    const PlainField& field = kind->Fields()[static_cast<std::size_t>(index)];
    std::string& value = values[static_cast<std::size_t>(index)];
    const std::string_view trimmed = Trimmed(line);
    switch (field.conversion) {
    case PlainConversion::None:
        break;
    case PlainConversion::Real:
        value = TextOfNumber(ModelReal(trimmed));
        break;
    case PlainConversion::Integer:
        value = TextOfNumber(ModelInteger(trimmed));
        break;
    case PlainConversion::IntegerAsReal:
        value = TextOfNumber(static_cast<double>(ModelInteger(trimmed)));
        break;
    case PlainConversion::Text:
        value = TextOf(trimmed);
        break;
    case PlainConversion::RawText:
        value = TextOf(line);
        break;
    case PlainConversion::Group:
        value += TextOf(trimmed);
        ReadGroup(value, std::to_string(field.firstCode), lines);
        break;
    case PlainConversion::PendingX:
        pendingX = TextOfNumber(ModelReal(trimmed));
        break;
    case PlainConversion::Vertex:
        value += "(" + pendingX + "," + TextOfNumber(ModelReal(trimmed)) + ")";
        break;
    case PlainConversion::Dash:
        value += "(" + TextOfNumber(ModelReal(trimmed)) + ")";
        break;
    }
}

const std::string& PlainRecord::Value(std::string_view name) const
{
    std::size_t i = 0;
    while (kind->Fields()[i].name != name)
        ++i;
    return values[i];
}

std::string Listed(const PlainRecord& record)
{
    std::string text;
    for (std::size_t i = 0; i < record.values.size(); ++i) {
        const PlainField& field = record.kind->Fields()[i];
        const bool isCount = field.name == "m_parts" || field.name == "m_entries";
        const std::string value = isCount ? std::to_string(record.inner.size()) : record.values[i];
        if (!field.name.empty())
            text += field.name + (field.isText ? "=\"" + value + "\"\n" : "=" + value + '\n');
    }
    return text;
}

// A line for each field in the order of the alphabet, without quotes.

std::string Sorted(const PlainRecord& record)
{
    return SortedWith(record, {});
}

std::string EntityText(const PlainRecord& entity)
{
    std::string text = Listed(entity);
    for (const PlainRecord& part : entity.inner)
        text += SortedWith(part, {{"part", part.kind->Name().substr(4)}});
    return text;
}
