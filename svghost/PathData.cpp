#include "svghost/PathData.h"

#include "svghost/NumberText.h"

namespace svghost {
namespace {

template <class Char>
bool isBlank(Char character)
{
    return character == Char(' ') || character == Char('\t') || character == Char('\n') ||
           character == Char('\r');
}

template <class Char>
void skipBlanks(const Char*& at)
{
    while (isBlank(*at))
        ++at;
}

// Blanks with at most one comma among them.
template <class Char>
void skipSeparator(const Char*& at)
{
    skipBlanks(at);
    if (*at == Char(',')) {
        ++at;
        skipBlanks(at);
    }
}

template <class Char>
class PathScanner {
public:
    PathScanner(const Char* text, const Affine& map, std::string& out, Box& box)
        : m_at(text), m_map(map), m_out(out), m_box(box)
    {
    }

    bool scan()
    {
        skipBlanks(m_at);
        if (*m_at != Char() && *m_at != Char('M'))
            return false;
        while (*m_at != Char()) {
            if (!readSegment())
                return false;
            skipSeparator(m_at);
        }
        return true;
    }

private:
    bool readSegment()
    {
        const char command = static_cast<char>(*m_at);
        if (command == 'M' || command == 'L' || command == 'A' || command == 'Z') {
            if (*m_at != Char(command))
                return false;
            ++m_at;
            skipBlanks(m_at);
            // Pairs that go on behind a move-to are lines.
            m_command = command == 'M' ? 'L' : command;
            m_out += command;
            m_first = true;
            if (command == 'Z')
                m_here = m_start;
            return command == 'Z' || readArguments(command == 'M');
        }
        return m_command != 'Z' && readArguments(false);
    }

    bool readArguments(bool move)
    {
        if (m_command == 'A')
            return readArc();
        if (!readPoint(m_here))
            return false;
        m_box.add(m_map(m_here));
        if (move)
            m_start = m_here;
        return true;
    }

    bool readArc()
    {
        Arc arc{};
        arc.start = m_here;
        if (!readNumber(arc.radiusX) || !readNumber(arc.radiusY) || !readNumber(arc.rotation) ||
            !readFlag(arc.large) || !readFlag(arc.sweep) || !readPoint(m_here))
            return false;
        arc.end = m_here;
        addArc(m_box, arc, m_map);
        return true;
    }

    bool readPoint(Point& point) { return readNumber(point.x) && readNumber(point.y); }

    bool readFlag(bool& flag)
    {
        double number = 0;
        if (!readNumber(number) || (number != 0 && number != 1))
            return false;
        flag = number == 1;
        return true;
    }

    bool readNumber(double& number)
    {
        if (!m_first)
            m_out += ' ';
        m_first = false;
        skipSeparator(m_at);
        return scanNumber(m_at, number, m_out);
    }

    const Char* m_at;
    const Affine& m_map;
    std::string& m_out;
    Box& m_box;
    Point m_here;
    Point m_start;
    char m_command = 'Z';
    bool m_first = true;
};

} // namespace

bool scanPoints(const wchar_t* text, std::string& out, Box& box)
{
    skipBlanks(text);
    for (bool first = true; *text != L'\0'; first = false) {
        Point point;
        if (!first)
            out += ' ';
        if (!scanNumber(text, point.x, out))
            return false;
        out += ',';
        skipSeparator(text);
        if (!scanNumber(text, point.y, out))
            return false;
        skipSeparator(text);
        box.add(point);
    }
    return true;
}

template <class Char>
bool scanPath(const Char* text, const Affine& map, std::string& out, Box& box)
{
    return PathScanner<Char>(text, map, out, box).scan();
}

template bool scanPath(const char*, const Affine&, std::string&, Box&);
template bool scanPath(const wchar_t*, const Affine&, std::string&, Box&);

} // namespace svghost
