#include "svghost/PathData.h"

#include "svghost/DrawableNumbers.h"

namespace svghost {

namespace {

// The blanks of SVG, of which those of a drawing's numbers have two more.
template <class Char>
bool IsPathBlank(Char character)
{
    return character == Char(' ') || character == Char('\t') || character == Char('\n') ||
           character == Char('\r');
}

template <class Char>
void SkipBlanks(const Char*& at)
{
    while (IsPathBlank(*at))
        ++at;
}

// Blanks with at most one comma among them.
template <class Char>
void SkipSeparator(const Char*& at)
{
    SkipBlanks(at);
    if (*at == Char(',')) {
        ++at;
        SkipBlanks(at);
    }
}

template <class Char>
class PathScanner {
public:
    PathScanner(const Char* text, const Affine& map, ShortForm& out, Box& box)
        : m_at(text), m_map(map), m_out(out), m_box(box)
    {
    }

    bool Scan()
    {
        SkipBlanks(m_at);
        if (*m_at != Char() && *m_at != Char('M'))
            return false;
        while (*m_at != Char()) {
            if (!ReadSegment())
                return false;
            SkipSeparator(m_at);
        }
        return true;
    }

private:
    bool ReadSegment()
    {
        const char command = static_cast<char>(*m_at);
        if (command == 'M' || command == 'L' || command == 'A' || command == 'Z') {
            if (*m_at != Char(command))
                return false;
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
        std::basic_string_view<Char> text;
        if (!ScanNumber(m_at, number, text))
            return false;
        m_out.Put(text);
        return true;
    }

    const Char* m_at;
    const Affine& m_map;
    ShortForm& m_out;
    Box& m_box;
    Point m_here;
    Point m_start;
    char m_command = 'Z';
    bool m_isFirst = true;
};

} // namespace

bool ScanPoints(const wchar_t* text, ShortForm& out, Box& box)
{
    SkipBlanks(text);
    for (bool isFirst = true; *text != L'\0'; isFirst = false) {
        Point point;
        std::wstring_view number;
        if (!isFirst)
            out.Put(' ');
        if (!ScanNumber(text, point.x, number))
            return false;
        out.Put(number);
        out.Put(',');
        SkipSeparator(text);
        if (!ScanNumber(text, point.y, number))
            return false;
        out.Put(number);
        SkipSeparator(text);
        box.Add(point);
    }
    return true;
}

template <class Char>
bool ScanPath(const Char* text, const Affine& map, ShortForm& out, Box& box)
{
    return PathScanner<Char>(text, map, out, box).Scan();
}

template bool ScanPath(const char*, const Affine&, ShortForm&, Box&);
template bool ScanPath(const wchar_t*, const Affine&, ShortForm&, Box&);

} // namespace svghost
