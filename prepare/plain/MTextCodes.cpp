#include "prepare/plain/MTextCodes.h"

#include "base/Ideographs.h"
#include "base/Numbers.h"
#include "base/Utf8.h"
#include "prepare/plain/TextCodes.h"
#include "prepare/plain/TextMetrics.h"
#include "prepare/plain/TextStyles.h"
#include "prepare/plain/ToleranceSigns.h"

#include <algorithm>
#include <cmath>

namespace prepare {

namespace {

using Kind = MTextItem::Kind;

// No program writes longer ones; a file made to do harm may.
constexpr std::size_t kLongest = 1 << 18;
constexpr std::size_t kMostBraces = 64;
constexpr std::size_t kMostTabs = 32;

class Reader {
public:
    Reader(std::string_view text, const RunLook& first, std::string_view codePage)
        : m_rest(text.substr(0, EndOf(text))), m_codePage(codePage), m_base(first), m_look(first)
    {
        m_content.isCut = m_rest.size() < text.size();
        m_content.looks.push_back(first);
        m_content.paragraphs.emplace_back();
        if (const std::size_t last = m_rest.rfind(';'); last != std::string_view::npos)
            m_lastSemicolon = m_rest.data() + last;
    }

    // Not in the middle of a character.
    static std::size_t EndOf(std::string_view text) { return StartOfUtf8(text, kLongest).size(); }

    MTextContent Read()
    {
        while (!m_rest.empty())
            ReadNext();
        End(Kind::ParagraphEnd);
        return std::move(m_content);
    }

private:
    void ReadNext()
    {
        switch (m_rest.front()) {
        case '\\':
            ReadBackslash();
            break;
        case '{':
            Open();
            break;
        case '}':
            Close();
            break;
        case '%':
        case '^':
            ReadCommonCode();
            break;
        default:
            ReadPlain();
            break;
        }
    }

    char Skip(std::size_t count)
    {
        m_rest.remove_prefix(count);
        return m_rest.empty() ? '\0' : m_rest.front();
    }

    void Open()
    {
        Skip(1);
        if (m_outer.size() < kMostBraces)
            m_outer.push_back({m_look, m_isSigns});
        else
            ++m_bracesTooDeep;
    }

    void Close()
    {
        Skip(1);
        if (m_bracesTooDeep != 0) {
            --m_bracesTooDeep;
        } else if (!m_outer.empty()) {
            m_look = m_outer.back().look;
            m_isSigns = m_outer.back().isSigns;
            m_outer.pop_back();
        }
    }

    // A sign that begins no code is itself.
    void ReadCommonCode()
    {
        const TextCode code = ReadTextCode(m_rest, m_codePage);
        m_content.hasWrongCodes |= code.isWrong;
        m_look.lines ^= code.toggled;
        AddLetters(code.size != 0 ? std::string_view(code.letters) : m_rest.substr(0, 1));
        Skip(std::max<std::size_t>(code.size, 1));
    }

    void ReadPlain()
    {
        const std::size_t size = std::min(m_rest.find_first_of("\\{}%^"), m_rest.size());
        if (m_isSigns)
            AddSigns(m_rest.substr(0, size));
        else
            AddLetters(m_rest.substr(0, size));
        Skip(size);
    }

    void AddSigns(std::string_view letters)
    {
        while (!letters.empty()) {
            const auto isSign = [](char letter) { return !ToleranceSign(letter).empty(); };
            const auto sign = std::find_if(letters.begin(), letters.end(), isSign);
            AddLetters({letters.begin(), sign});
            if (sign != letters.end())
                AddLetters(ToleranceSign(*sign));
            letters.remove_prefix(
                std::min(letters.size(), static_cast<std::size_t>(sign - letters.begin()) + 1));
        }
    }

    void ReadBackslash()
    {
        if (const TextCode code = ReadTextCode(m_rest, m_codePage); code.size != 0) {
            m_content.hasWrongCodes |= code.isWrong;
            AddLetters(code.letters);
            Skip(code.size);
            return;
        }
        const char code = Skip(1);
        constexpr unsigned char kLastOfAscii = 0x7F; // no code has others
        if (m_rest.empty() || static_cast<unsigned char>(code) > kLastOfAscii)
            return;
        Skip(1);
        if (!ReadSwitch(code) && !ReadLook(code))
            ReadLongCode(code);
    }

    // Codes of one character.
    bool ReadSwitch(char code)
    {
        switch (code) {
        case '\\':
        case '{':
        case '}':
            AddLetters({&code, 1});
            return true;
        case '~':
            AddLetters("\xC2\xA0");
            return true;
        case 'P':
        case 'X':
            End(Kind::ParagraphEnd);
            return true;
        case 'N':
            End(Kind::ColumnEnd);
            return true;
        case 'L':
        case 'l':
            SetLine(kUnderline, code == 'L');
            return true;
        case 'O':
        case 'o':
            SetLine(kOverline, code == 'O');
            return true;
        case 'K':
        case 'k':
            SetLine(kStrike, code == 'K');
            return true;
        default:
            return false;
        }
    }

    void SetLine(std::uint8_t line, bool isOn)
    {
        m_look.lines = static_cast<std::uint8_t>(isOn ? m_look.lines | line : m_look.lines & ~line);
    }

    // Codes with a number: maybe with an x for a factor, and a semicolon.
    bool ReadLook(char code)
    {
        if (std::string_view("HWQTACc").find(code) == std::string_view::npos)
            return false;
        const std::size_t size = std::min(m_rest.find_first_not_of("+-.0123456789"), m_rest.size());
        const std::string_view digits = m_rest.substr(0, size);
        char after = Skip(size);
        const bool isFactor = after == 'x' || after == 'X';
        if (isFactor)
            after = Skip(1);
        if (after == ';')
            Skip(1);
        if (!digits.empty())
            SetLook(code, digits, isFactor);
        return true;
    }

    void SetLook(char code, std::string_view digits, bool isFactor)
    {
        const double value = ParseReal(digits);
        switch (code) {
        case 'H':
            SetHeight(isFactor ? value * m_look.height : value);
            break;
        case 'W':
            SetWidthFactor(isFactor ? value * m_look.widthFactor : value);
            break;
        case 'Q':
            m_look.slant = SlantOf(value);
            break;
        case 'T':
            m_content.isSpaced |= value != 1;
            break;
        case 'A':
            m_look.alignment = value == 1 || value == 2 ? static_cast<std::uint8_t>(value) : std::uint8_t{0};
            break;
        default:
            SetColour(code, ParseInteger(digits));
            break;
        }
    }

    // Factors in a row must not grow without bounds.
    void SetHeight(double height)
    {
        constexpr double kFarthest = 1000;
        if (height >= m_base.height / kFarthest && height <= m_base.height * kFarthest)
            m_look.height = height;
    }

    void SetWidthFactor(double factor)
    {
        constexpr double kLeast = 0.01, kMost = 100;
        if (factor >= kLeast && factor <= kMost)
            m_look.widthFactor = factor;
    }

    // A true colour has its bytes in the order blue, green, red.
    void SetColour(char code, std::int32_t value)
    {
        m_look.hasColour = true;
        m_look.colour = code == 'C' && value >= 0 && value <= kByLayer ? value : kByLayer;
        m_look.trueColour =
            code == 'C'
                ? kNoTrueColour
                : static_cast<std::int32_t>((value & 0xFF) << 16 | (value & 0xFF00) | (value >> 16 & 0xFF));
    }

    // Codes up to a semicolon. Without one, only the code's letter is left out.
    void ReadLongCode(char code)
    {
        if (std::string_view("fFpS").find(code) == std::string_view::npos)
            return;
        if (m_lastSemicolon == nullptr || m_rest.data() > m_lastSemicolon)
            return;
        if (code == 'S') {
            ReadFraction();
            return;
        }
        const std::size_t size = m_rest.find(';');
        if (code == 'p')
            ReadParagraphLook(m_rest.substr(0, size));
        else
            m_isSigns = IsSignFont(m_rest.substr(0, size));
        Skip(size + 1);
    }

    // Upper text, a divider, lower text. Without a divider it is no fraction.
    void ReadFraction()
    {
        std::string above, below;
        Kind kind = Kind::Letters;
        while (!m_rest.empty() && m_rest.front() != ';') {
            const Kind divided = DividedBy(m_rest.front());
            if (kind == Kind::Letters && divided != Kind::Letters) {
                kind = divided;
                Skip(1);
            } else {
                ReadInFraction(kind == Kind::Letters ? above : below);
            }
        }
        Skip(std::min<std::size_t>(m_rest.size(), 1));
        if (kind == Kind::Letters)
            AddLetters(above);
        else
            AddFraction(kind, Trim(above), Trim(below));
    }

    static Kind DividedBy(char divider)
    {
        switch (divider) {
        case '^':
            return Kind::Tolerance;
        case '/':
            return Kind::Fraction;
        case '#':
            return Kind::Diagonal;
        default:
            return Kind::Letters;
        }
    }

    // A character, a code that means one, or a divider that a backslash makes an ordinary character.
    void ReadInFraction(std::string& part)
    {
        const char c = m_rest.front();
        const TextCode code = c == '^' ? TextCode{} : ReadTextCode(m_rest, m_codePage);
        m_content.hasWrongCodes |= code.isWrong;
        if (code.size != 0) {
            AppendWithoutControls(part, code.letters);
            Skip(code.size);
            return;
        }
        if (c == '\\')
            Skip(1);
        if (c != '{' && c != '}')
            AppendWithoutControls(part, m_rest.substr(0, 1));
        Skip(std::min<std::size_t>(m_rest.size(), 1));
    }

    void AddFraction(Kind kind, std::string_view above, std::string_view below)
    {
        if (above.empty() && below.empty())
            return;
        Add(kind, above);
        m_content.items.back().below = static_cast<std::uint32_t>(below.size());
        m_content.letters += below;
    }

    // "xi-3,l3,t3,6": indents, tabs, q and a letter for the alignment; an asterisk in place of a number sets
    // back. Distances between paragraphs are not read.
    void ReadParagraphLook(std::string_view codes)
    {
        ParagraphLook look = m_content.paragraphs.back();
        while (!codes.empty()) {
            const char code = codes.front();
            codes.remove_prefix(1);
            if (code == 'q') {
                look.alignment = AlignmentOf(codes.empty() ? '*' : codes.front());
            } else if (code == 't') {
                look.tabs.clear();
                ReadTabs(codes, look.tabs);
            } else if (code == 'i') {
                look.firstIndent = ReadNumber(codes);
            } else if (code == 'l') {
                look.left = ReadNumber(codes);
            } else if (code == 'r') {
                look.right = ReadNumber(codes);
            }
        }
        m_content.paragraphs.push_back(std::move(look));
    }

    static LineAlignment AlignmentOf(char letter)
    {
        switch (letter) {
        case 'l':
            return LineAlignment::Left;
        case 'j':
            return LineAlignment::Justified;
        case 'd':
            return LineAlignment::Distributed;
        case 'c':
            return LineAlignment::Centre;
        case 'r':
            return LineAlignment::Right;
        default:
            return LineAlignment::AsAttached;
        }
    }

    static double ReadNumber(std::string_view& codes)
    {
        const std::size_t size = std::min(codes.find_first_not_of("+-.0123456789"), codes.size());
        const double value = ParseReal(codes.substr(0, size));
        codes.remove_prefix(size);
        return std::isfinite(value) ? value : 0;
    }

    static void ReadTabs(std::string_view& codes, std::vector<double>& tabs)
    {
        while (!codes.empty()) {
            if (std::string_view("+-.0123456789").find(codes.front()) != std::string_view::npos) {
                const double tab = ReadNumber(codes);
                if (tabs.size() < kMostTabs && tab > (tabs.empty() ? 0 : tabs.back()))
                    tabs.push_back(tab);
            } else if (std::string_view(",crdz*").find(codes.front()) != std::string_view::npos) {
                codes.remove_prefix(1); // between tabs, and how each aligns
            } else {
                return;
            }
        }
    }

    // Letters of the text, which may have blanks and control characters.
    void AddLetters(std::string_view letters)
    {
        while (!letters.empty()) {
            const char c = letters.front();
            std::size_t size = 1;
            if (c == ' ')
                Add(Kind::Blank, " ");
            else if (c == '\t')
                Add(Kind::Tab, {});
            else if (c == '\n')
                End(Kind::ParagraphEnd);
            else if (const auto byte = static_cast<unsigned char>(c); byte >= 0x20 && byte != 0x7F)
                size = AddWord(letters);
            letters.remove_prefix(size);
        }
    }

    // Adds letters up to a blank, a control character or an ideograph; returns how many bytes.
    std::size_t AddWord(std::string_view letters)
    {
        std::size_t size = 0;
        while (size < letters.size()) {
            const auto byte = static_cast<unsigned char>(letters[size]);
            if (byte <= 0x20 || byte == 0x7F)
                break;
            if (byte < 0xE1) { // ideographs begin with higher bytes
                ++size;
                continue;
            }
            const DecodedCharacter next = DecodeUtf8(letters.substr(size));
            if (IsIdeograph(next.value)) {
                if (size == 0) {
                    Add(Kind::Ideograph, letters.substr(0, next.size));
                    return next.size;
                }
                break;
            }
            size += next.size;
        }
        Add(Kind::Letters, letters.substr(0, size));
        return size;
    }

    std::uint32_t LookNow()
    {
        if (m_content.looks.back() != m_look)
            m_content.looks.push_back(m_look);
        return static_cast<std::uint32_t>(m_content.looks.size() - 1);
    }

    void Add(Kind kind, std::string_view letters)
    {
        MTextItem item;
        item.kind = kind;
        item.look = LookNow();
        item.start = static_cast<std::uint32_t>(m_content.letters.size());
        item.size = static_cast<std::uint32_t>(letters.size());
        m_content.letters += letters;
        m_content.items.push_back(item);
    }

    void End(Kind kind)
    {
        Add(kind, {});
        m_content.items.back().below = static_cast<std::uint32_t>(m_content.paragraphs.size() - 1);
    }

    std::string_view m_rest;
    const char* m_lastSemicolon = nullptr;
    const std::string_view m_codePage;
    const RunLook m_base;
    RunLook m_look;
    bool m_isSigns = false; // letters are those of a font of signs
    struct Outer {
        RunLook look;
        bool isSigns;
    };
    std::vector<Outer> m_outer; // of the braces that are open
    std::size_t m_bracesTooDeep = 0;
    MTextContent m_content;
};

} // namespace

MTextContent ReadMText(std::string_view text, const RunLook& first, std::string_view codePage)
{
    return Reader(text, first, codePage).Read();
}

} // namespace prepare
