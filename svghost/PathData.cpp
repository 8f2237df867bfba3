#include "svghost/PathData.h"

#include "base/NarrowAscii.h"
#include "base/ScanReal.h"
#include "svghost/DrawableNumbers.h"

namespace svghost {

namespace {

// The blanks of SVG, of which those of a drawing's numbers have two more.
bool IsPathBlank(char character)
{
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

void SkipBlanks(const char*& at)
{
    while (IsPathBlank(*at))
        ++at;
}

// Blanks with at most one comma among them.
void SkipSeparator(const char*& at)
{
    SkipBlanks(at);
    if (*at == ',') {
        ++at;
        SkipBlanks(at);
    }
}

class PathScanner {
public:
    PathScanner(const char* text, const Affine& map, ShortForm& out, Box& box)
        : m_at(text), m_map(map), m_out(out), m_box(box)
    {
    }

    bool Scan()
    {
        SkipBlanks(m_at);
        if (*m_at != '\0' && *m_at != 'M')
            return false;
        while (*m_at != '\0') {
            if (!ReadSegment())
                return false;
            SkipSeparator(m_at);
        }
        return true;
    }

private:
    bool ReadSegment()
    {
        const char command = *m_at;
        if (command == 'M' || command == 'L' || command == 'A' || command == 'Z') {
            ++m_at;
            SkipBlanks(m_at);
            // Pairs that go on after a move-to are lines.
            m_command = command == 'M' ? 'L' : command;
            m_out.Put(command);
            m_isFirst = true;
            if (command == 'Z')
                m_here = m_start;
            return command == 'Z' || ReadArguments(command == 'M');
        }
        return m_command != 'Z' && ReadArguments(false);
    }

    bool ReadArguments(bool isMove)
    {
        if (m_command == 'A')
            return ReadArc();
        if (!ReadPoint(m_here))
            return false;
        m_box.Add(m_map(m_here));
        if (isMove)
            m_start = m_here;
        return true;
    }

    bool ReadArc()
    {
        Arc arc{};
        arc.start = m_here;
        if (!ReadNumber(arc.radiusX) || !ReadNumber(arc.radiusY) || !ReadNumber(arc.rotation) ||
            !ReadFlag(arc.isLarge) || !ReadFlag(arc.isPositive) || !ReadPoint(m_here))
            return false;
        arc.end = m_here;
        AddArc(m_box, arc, m_map);
        return true;
    }

    bool ReadPoint(Point& point) { return ReadNumber(point.x) && ReadNumber(point.y); }

    bool ReadFlag(bool& isSet)
    {
        double number = 0;
        if (!ReadNumber(number) || (number != 0 && number != 1))
            return false;
        isSet = number == 1;
        return true;
    }

    bool ReadNumber(double& number)
    {
        if (!m_isFirst)
            m_out.Put(' ');
        m_isFirst = false;
        SkipSeparator(m_at);
        std::string_view text;
        if (!ScanNumberAhead(m_at, number, text))
            return false;
        m_out.Put(text);
        return true;
    }

    const char* m_at;
    const Affine& m_map;
    ShortForm& m_out;
    Box& m_box;
    Point m_here;
    Point m_start;
    char m_command = 'Z';
    bool m_isFirst = true;
};

// Reads points from one piece of a text after the other, each of which ends with a number and its separator.
class PointScanner {
public:
    PointScanner(ShortForm& out, Box& box) : m_out(out), m_box(box) {}

    bool Take(const char* at)
    {
        SkipBlanks(at);
        while (*at != '\0') {
            if (!m_hasX && !m_isFirst)
                m_out.Put(' ');
            m_isFirst = false;
            std::string_view number;
            if (!ScanNumberAhead(at, m_hasX ? m_point.y : m_point.x, number))
                return false;
            m_out.Put(number);
            if (m_hasX)
                m_box.Add(m_point);
            else
                m_out.Put(',');
            m_hasX = !m_hasX;
            SkipSeparator(at);
        }
        return true;
    }

    bool HasWholePoints() const { return !m_hasX; }

private:
    ShortForm& m_out;
    Box& m_box;
    Point m_point;
    bool m_hasX = false;
    bool m_isFirst = true;
};

bool IsSeparator(wchar_t character)
{
    return character == L',' || (character < 0x80 && IsPathBlank(static_cast<char>(character)));
}

// How much of a long text is read at once: up to where a number begins.
std::size_t SizeOfPiece(std::wstring_view text)
{
    constexpr std::size_t kLong = std::size_t{1} << 16;
    if (text.size() <= kLong)
        return text.size();
    const auto isBegin = [&](std::size_t at) { return IsSeparator(text[at - 1]) && !IsSeparator(text[at]); };
    std::size_t size = kLong;
    while (size > 0 && !isBegin(size))
        --size;
    if (size > 0)
        return size;
    size = kLong;
    while (size < text.size() && !isBegin(size))
        ++size;
    return size;
}

} // namespace

char* PathText::Start(std::size_t size)
{
    if (size + 1 + kScanAhead > m_storage.size())
        m_storage.resize(size + 1 + kScanAhead);
    m_storage[size] = '\0';
    return m_storage.data();
}

bool PathText::Set(std::wstring_view text)
{
    return NarrowAscii(text, Start(text.size()));
}

void PathText::Set(std::string_view text)
{
    std::copy(text.begin(), text.end(), Start(text.size()));
}

bool ScanPoints(std::wstring_view text, PathText& narrow, ShortForm& out, Box& box)
{
    PointScanner scanner(out, box);
    while (!text.empty()) {
        const std::size_t size = SizeOfPiece(text);
        if (!narrow.Set(text.substr(0, size)) || !scanner.Take(narrow.Get()))
            return false;
        text.remove_prefix(size);
    }
    return scanner.HasWholePoints();
}

bool ScanPath(const PathText& text, const Affine& map, ShortForm& out, Box& box)
{
    return PathScanner(text.Get(), map, out, box).Scan();
}

} // namespace svghost
