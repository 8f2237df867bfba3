#include "prepare/plain/TextWords.h"

#include "prepare/plain/MTextCodes.h"
#include "prepare/plain/Matrix.h"
#include "prepare/plain/TextCodes.h"
#include "prepare/plain/TextMetrics.h"

#include <algorithm>
#include <utility>

namespace prepare {

namespace {

class WordsReader {
public:
    explicit WordsReader(std::string_view codePage) : m_codePage(codePage) {}

    Words Read(std::string_view text)
    {
        while (!text.empty()) {
            const std::size_t plain = std::min(text.find_first_of("%\\^", 0), text.size());
            Add(text.substr(0, plain));
            text.remove_prefix(plain);
            text.remove_prefix(Code(text));
        }
        Toggle(m_lines);
        return std::move(m_words);
    }

private:
    void Add(std::string_view letters)
    {
        const std::size_t before = m_words.text.size();
        AppendWithoutControls(m_words.text, letters);
        m_words.width += TextWidth(std::string_view(m_words.text).substr(before));
    }

    // Returns how many bytes it takes.
    std::size_t Code(std::string_view text)
    {
        if (text.empty())
            return 0;
        const TextCode code = ReadTextCode(text, m_codePage);
        m_words.hasWrongCodes |= code.isWrong;
        if (code.toggled != 0)
            Toggle(code.toggled);
        Add(code.size != 0 ? std::string_view(code.letters) : text.substr(0, 1));
        return std::max<std::size_t>(code.size, 1);
    }

    void Toggle(std::uint8_t lines)
    {
        if (m_lines != 0 && m_words.width > m_start)
            m_words.linedParts.push_back({m_start, m_words.width, m_lines});
        m_lines ^= lines;
        m_start = m_words.width;
    }

    const std::string_view m_codePage;
    Words m_words;
    std::uint8_t m_lines = 0;
    double m_start = 0;
};

void AppendWords(std::string& words, const MTextContent& content, const MTextItem& item)
{
    using Kind = MTextItem::Kind;
    words += content.Text(item);
    switch (item.kind) {
    case Kind::Tab:
        words += ' ';
        break;
    case Kind::Tolerance:
        words.append(" ").append(content.Below(item));
        break;
    case Kind::Fraction:
    case Kind::Diagonal:
        words.append("/").append(content.Below(item));
        break;
    case Kind::ParagraphEnd:
    case Kind::ColumnEnd:
        words += '\n';
        break;
    default:
        break;
    }
}

std::string WordsOfMText(std::string_view text, std::string_view codePage)
{
    std::string words;
    const MTextContent content = ReadMText(text, {}, codePage);
    for (const MTextItem& item : content.items)
        AppendWords(words, content, item);
    while (words.ends_with('\n'))
        words.pop_back();
    return words;
}

std::string JoinedCells(const std::vector<std::string>& cells)
{
    std::string text;
    for (const std::string& cell : cells)
        if (!cell.empty())
            text.append(text.empty() ? "" : "\\P").append(cell);
    return text;
}

// The cells of a frame are apart by %%v.
std::string WithBlanksBetweenCells(std::string text)
{
    for (std::size_t i = 0; i + 2 < text.size(); ++i)
        if (text[i] == '%' && text[i + 1] == '%' && (text[i + 2] == 'v' || text[i + 2] == 'V'))
            text.replace(i, 3, 3, ' ');
    return text;
}

} // namespace

Words ReadWords(std::string_view text, std::string_view codePage)
{
    return WordsReader(codePage).Read(text);
}

bool IsOfSeveralLines(const Text& attribute)
{
    return attribute.hasMText && attribute.text.find_first_of("\\{") != std::string::npos;
}

RawText RawTextOf(const Entity& entity)
{
    using Form = RawText::Form;
    switch (entity.type) {
    case EntityType::Text:
    case EntityType::Attrib:
    case EntityType::AttDef: {
        const auto& text = static_cast<const Text&>(entity);
        return {IsOfSeveralLines(text) ? Form::Paragraphs : Form::Line, text.text,
                FromObject(entity.extrusion).Apply(text.point)};
    }
    case EntityType::MText: {
        const auto& text = static_cast<const MText&>(entity);
        return {Form::Paragraphs, text.text, text.point};
    }
    case EntityType::Dimension: {
        const auto& dimension = static_cast<const Dimension&>(entity);
        return {Form::Paragraphs, dimension.text, FromObject(entity.extrusion).Apply(dimension.textPoint)};
    }
    case EntityType::MultiLeader: {
        const auto& leader = static_cast<const MultiLeader&>(entity);
        return {Form::Paragraphs, leader.text, leader.textPoint};
    }
    case EntityType::Tolerance: {
        const auto& tolerance = static_cast<const Tolerance&>(entity);
        return {Form::Frame, tolerance.text, tolerance.point};
    }
    case EntityType::Table: {
        const auto& table = static_cast<const Table&>(entity);
        return {Form::Paragraphs, JoinedCells(table.cells), table.point};
    }
    default:
        return {};
    }
}

std::string PlainWordsOf(const RawText& text, const Drawing& drawing)
{
    const std::string_view codePage = drawing.header.Text("$DWGCODEPAGE");
    switch (text.form) {
    case RawText::Form::Line:
        return ReadWords(text.text, codePage).text;
    case RawText::Form::Frame:
        return WordsOfMText(WithBlanksBetweenCells(text.text), codePage);
    default:
        return WordsOfMText(text.text, codePage);
    }
}

} // namespace prepare
