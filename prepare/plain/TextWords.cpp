#include "prepare/plain/TextWords.h"

#include "prepare/plain/MTextCodes.h"
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

std::string RawTextOf(const Entity& entity)
{
    switch (entity.type) {
    case EntityType::Text:
    case EntityType::Attrib:
    case EntityType::AttDef:
        return static_cast<const Text&>(entity).text;
    case EntityType::MText:
        return static_cast<const MText&>(entity).text;
    case EntityType::Dimension:
        return static_cast<const Dimension&>(entity).text;
    case EntityType::MultiLeader:
        return static_cast<const MultiLeader&>(entity).text;
    case EntityType::Tolerance:
        return static_cast<const Tolerance&>(entity).text;
    case EntityType::Table:
        return JoinedCells(static_cast<const Table&>(entity).cells);
    default:
        return {};
    }
}

std::string PlainWordsOf(const Entity& entity, const Drawing& drawing)
{
    const std::string_view codePage = drawing.header.Text("$DWGCODEPAGE");
    const std::string text = RawTextOf(entity);
    switch (entity.type) {
    case EntityType::Text:
        return ReadWords(text, codePage).text;
    case EntityType::Attrib:
    case EntityType::AttDef:
        if (!IsOfSeveralLines(static_cast<const Text&>(entity)))
            return ReadWords(text, codePage).text;
        break;
    case EntityType::Tolerance:
        return WordsOfMText(WithBlanksBetweenCells(text), codePage);
    default:
        break;
    }
    return WordsOfMText(text, codePage);
}

} // namespace prepare
