#include "prepare/write/PlainLog.h"

#include "base/Pi.h"
#include "prepare/plain/Curves.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>
#include <type_traits>

namespace prepare {

namespace {

enum LogKind : unsigned char {
    kLoggedLine,
    kLoggedCircle,
    kLoggedArc,
    kLoggedEllipse,
    kLoggedPolyline,
    kLoggedFill,
    kLoggedMask,
    kLoggedText,
    kLoggedLineOfText,
    kLoggedInsert
};

// What an entity has besides, in the same byte as its kind or in that of a text.
constexpr unsigned kKinds = 0x0F;
constexpr unsigned kIsClosed = 0x10;   // of a polyline
constexpr unsigned kHasBulges = 0x20;  // of a polyline
constexpr unsigned kIsMirrored = 0x10; // of an insert
constexpr unsigned kIsTurned = 0x20;   // of an insert: it has a rotation
constexpr unsigned kAnchors = 0x03;    // of a text
constexpr unsigned kIsLevel = 0x04;    // of a text: along is (x, 0) and up (0, y)

template <class... Numbers>
bool AreFinite(Numbers... numbers)
{
    return (std::isfinite(numbers) && ...);
}

// -0 is kept as any other number.
bool IsZero(double value)
{
    return value == 0 && !std::signbit(value);
}

// Numbers are mostly small: each byte has seven bits, the lowest first, and says whether more follow.
constexpr std::size_t kMostOfCount = 10;

// Puts values into room that has enough for them.
class LogWriter {
public:
    explicit LogWriter(char* place) : m_place(place) {}

    template <class... Values>
    void Put(const Values&... values)
    {
        (PutOne(values), ...);
    }
    void PutByte(unsigned byte) { *m_place++ = static_cast<char>(byte); }
    void PutCount(std::uint64_t count)
    {
        for (; count >= 0x80; count >>= 7)
            PutByte(static_cast<unsigned>(count & 0x7F) | 0x80);
        PutByte(static_cast<unsigned>(count));
    }
    void PutText(std::string_view text) { m_place = std::copy(text.begin(), text.end(), m_place); }

    char* Place() const { return m_place; }

private:
    template <class Value>
    void PutOne(const Value& value)
    {
        static_assert(std::is_same_v<Value, double> || std::is_same_v<Value, Point2>);
        std::memcpy(m_place, &value, sizeof(value));
        m_place += sizeof(value);
    }

    char* m_place;
};

// Takes values out of a part of a log, in the order in which they were put in.
class LogReader {
public:
    explicit LogReader(const char* bytes) : m_place(bytes) {}

    double Real() { return Take<double>(); }
    Point2 Point() { return Take<Point2>(); }
    unsigned Byte() { return static_cast<unsigned char>(*m_place++); }
    std::uint64_t Count()
    {
        std::uint64_t count = 0;
        for (int shift = 0;; shift += 7) {
            const unsigned byte = Byte();
            count |= std::uint64_t{byte & 0x7F} << shift;
            if (byte < 0x80)
                return count;
        }
    }
    StyleId Style() { return static_cast<StyleId>(Count()); }
    std::string_view Text(std::size_t size)
    {
        m_place += size;
        return {m_place - size, size};
    }

private:
    template <class Value>
    Value Take()
    {
        Value value;
        std::memcpy(&value, m_place, sizeof(value));
        m_place += sizeof(value);
        return value;
    }

    const char* m_place;
};

void ReplayPolyline(LogReader& reader, LogVisitor& visitor, unsigned kind, std::vector<PlainVertex>& vertices)
{
    const StyleId style = reader.Style();
    vertices.resize(reader.Count());
    for (PlainVertex& vertex : vertices) {
        vertex.point = reader.Point();
        vertex.bulge = (kind & kHasBulges) != 0 ? reader.Real() : 0;
    }
    visitor.Polyline(style, vertices, (kind & kIsClosed) != 0);
}

void ReplayArea(LogReader& reader, LogVisitor& visitor, unsigned kind)
{
    const StyleId style = reader.Style();
    std::vector<std::vector<Point2>> rings(reader.Count());
    for (std::vector<Point2>& ring : rings) {
        ring.resize(reader.Count());
        for (Point2& point : ring)
            point = reader.Point();
    }
    if (kind == kLoggedFill)
        visitor.Fill(style, rings);
    else
        visitor.Mask(style, rings);
}

LoggedText TakeText(LogReader& reader)
{
    LoggedText text;
    const unsigned look = reader.Byte();
    text.anchor = static_cast<Anchor>(look & kAnchors);
    text.style = static_cast<NameId>(reader.Count());
    text.point = reader.Point();
    if ((look & kIsLevel) != 0) {
        text.along = {reader.Real(), 0};
        text.up = {0, reader.Real()};
    } else {
        text.along = reader.Point();
        text.up = reader.Point();
    }
    const std::size_t size = reader.Count();
    text.text = reader.Text(size);
    return text;
}

void ReplayText(LogReader& reader, LogVisitor& visitor)
{
    const StyleId style = reader.Style();
    visitor.Text(style, TakeText(reader));
}

void ReplayLineOfText(LogReader& reader, LogVisitor& visitor)
{
    const Point2 point = reader.Point();
    const double spread = reader.Real();
    std::vector<LoggedRun> runs(reader.Count());
    for (LoggedRun& run : runs) {
        run.blanks = reader.Count();
        run.style = reader.Style();
        run.text = TakeText(reader);
    }
    visitor.LineOfText(point, spread, runs);
}

void ReplayInsert(LogReader& reader, LogVisitor& visitor, unsigned kind)
{
    const std::size_t block = reader.Count();
    const Point2 point = reader.Point();
    const double rotation = (kind & kIsTurned) != 0 ? reader.Real() : 0;
    visitor.Insert(block, point, rotation, (kind & kIsMirrored) != 0);
}

// A line, or what has a centre.
void ReplayCurve(LogReader& reader, LogVisitor& visitor, unsigned kind)
{
    const StyleId style = reader.Style();
    const Point2 first = reader.Point();
    if (kind == kLoggedLine)
        return visitor.Line(style, first, reader.Point());
    if (kind == kLoggedCircle)
        return visitor.Circle(style, first, reader.Real());
    const Point2 axis = kind == kLoggedArc ? Point2{reader.Real(), 0} : reader.Point();
    const double ratio = kind == kLoggedArc ? 1 : reader.Real();
    const double start = reader.Real();
    const double end = reader.Real();
    if (kind == kLoggedArc)
        visitor.Arc(style, first, axis.x, start, end);
    else
        visitor.Ellipse(style, first, axis, ratio, start, end);
}

void ReplayOne(LogReader& reader, LogVisitor& visitor, std::vector<PlainVertex>& vertices)
{
    const unsigned kind = reader.Byte();
    switch (kind & kKinds) {
    case kLoggedPolyline:
        return ReplayPolyline(reader, visitor, kind, vertices);
    case kLoggedFill:
    case kLoggedMask:
        return ReplayArea(reader, visitor, kind);
    case kLoggedText:
        return ReplayText(reader, visitor);
    case kLoggedLineOfText:
        return ReplayLineOfText(reader, visitor);
    case kLoggedInsert:
        return ReplayInsert(reader, visitor, kind);
    default:
        return ReplayCurve(reader, visitor, kind);
    }
}

bool IsDrawn(const PlainText& text)
{
    return IsDrawable(text.point) && IsDrawable(text.along) && IsDrawable(text.up) &&
           Cross(text.along, text.up) != 0;
}

// Whether the texts can be drawn as one: all are visible, and none is too small compared with another.
bool AreAlike(std::span<const PlainRun> runs)
{
    constexpr double kMost = 1000;
    const double first = runs.empty() ? 0 : Length(runs.front().text.along);
    return std::all_of(runs.begin(), runs.end(), [&](const PlainRun& run) {
        const double size = Length(run.text.along);
        return IsDrawn(run.text) && size <= kMost * first && first <= kMost * size;
    });
}

// The room that a text takes at most, with its style.
std::size_t RoomFor(const PlainText& text)
{
    return 1 + 3 * kMostOfCount + 3 * sizeof(Point2) + text.text.size();
}

void PutText(LogWriter& log, StyleId style, const PlainText& text)
{
    const bool isLevel = IsZero(text.along.y) && IsZero(text.up.x);
    log.PutCount(style);
    log.PutByte(static_cast<unsigned>(text.anchor) | (isLevel ? kIsLevel : 0));
    log.PutCount(text.style);
    log.Put(text.point);
    if (isLevel)
        log.Put(text.along.x, text.up.y);
    else
        log.Put(text.along, text.up);
    log.PutCount(text.text.size());
    log.PutText(text.text);
}

// The edges of an area have no width.
Style StyleOfEdges(Style style)
{
    style.weight = 0;
    style.width = 0;
    style.lineType = nullptr;
    style.lineTypeScale = 1;
    return style;
}

} // namespace

void LogVisitor::LineOfText(Point2, double, std::span<const LoggedRun> runs)
{
    for (const LoggedRun& run : runs)
        Text(run.style, run.text);
}

// Each time it is called, one more entity is in the last part.
char* PlainLog::Room(std::size_t size)
{
    char* const place = m_room.m_storage.Room(size);
    const bool isNext = m_room.m_last.log == this && m_room.m_last.end == place;
    if (!isNext || m_room.m_last.part->place != m_place || m_room.m_last.part->count == UINT32_MAX)
        AddPart(place);
    ++m_room.m_last.part->count;
    return place;
}

void PlainLog::AddPart(const char* begin)
{
    const std::size_t number = m_room.m_parts.size();
    if (number >= LogRoom::kNoPart)
        throw std::bad_alloc();
    m_room.m_parts.push_back({m_place, begin, 0, LogRoom::kNoPart});
    (IsEmpty() ? m_firstPart : m_room.m_parts[m_lastPart].next) = static_cast<std::uint32_t>(number);
    m_lastPart = static_cast<std::uint32_t>(number);
    m_room.m_last = {this, &m_room.m_parts.back(), begin};
}

// Gives back what Room gave too much.
void PlainLog::End(char* end)
{
    m_room.m_last.end = end;
    m_room.m_storage.EndAt(end);
}

template <class... Values>
void PlainLog::Add(unsigned kind, std::uint64_t number, const Values&... values)
{
    LogWriter log(Room(1 + kMostOfCount + (sizeof(values) + ...)));
    log.PutByte(kind);
    log.PutCount(number);
    log.Put(values...);
    End(log.Place());
}

void PlainLog::AddRound(Point2 centre, double radius)
{
    m_reach.Add(centre - Point2{radius, radius});
    m_reach.Add(centre + Point2{radius, radius});
}

void PlainLog::Line(const Style& style, Point2 start, Point2 end)
{
    if (!IsDrawable(start) || !IsDrawable(end))
        return;
    Add(kLoggedLine, StyleOf(style), start, end);
    m_reach.Add(start);
    m_reach.Add(end);
}

void PlainLog::Circle(const Style& style, Point2 centre, double radius)
{
    if (!IsDrawable(centre) || !std::isfinite(radius) || !(radius > 0))
        return;
    Add(kLoggedCircle, StyleOf(style), centre, radius);
    AddRound(centre, radius);
}

void PlainLog::Arc(const Style& style, Point2 centre, double radius, double start, double end)
{
    if (!IsDrawable(centre) || !AreFinite(radius, start, end) || !(radius > 0) || !(end > start))
        return;
    if (end - start >= kTurn)
        return Circle(style, centre, radius);
    Add(kLoggedArc, StyleOf(style), centre, radius, start, end);
    AddRound(centre, radius);
}

void PlainLog::Ellipse(const Style& style, Point2 centre, Point2 majorAxis, double ratio, double start,
                       double end)
{
    const double radius = Length(majorAxis);
    if (!IsDrawable(centre) || !AreFinite(radius, ratio, start, end) || !(radius > 0) || !(ratio > 0) ||
        !(end > start))
        return;
    Add(kLoggedEllipse, StyleOf(style), centre, majorAxis, ratio, start, end);
    AddRound(centre, radius);
}

void PlainLog::Polyline(const Style& style, std::span<const PlainVertex> vertices, bool isClosed)
{
    const auto isFinite = [](const PlainVertex& v) { return IsDrawable(v.point) && std::isfinite(v.bulge); };
    if (vertices.size() < 2 || !std::all_of(vertices.begin(), vertices.end(), isFinite))
        return;
    const bool hasBulges =
        std::any_of(vertices.begin(), vertices.end(), [](const PlainVertex& v) { return v.bulge != 0; });
    const StyleId id = StyleOf(style);
    const std::size_t each = sizeof(Point2) + (hasBulges ? sizeof(double) : 0);
    LogWriter log(Room(1 + 2 * kMostOfCount + vertices.size() * each));
    log.PutByte(kLoggedPolyline | (isClosed ? kIsClosed : 0) | (hasBulges ? kHasBulges : 0));
    log.PutCount(id);
    log.PutCount(vertices.size());
    for (const PlainVertex& vertex : vertices) {
        log.Put(vertex.point);
        if (hasBulges)
            log.Put(vertex.bulge);
        m_reach.Add(vertex.point);
    }
    End(log.Place());
}

void PlainLog::Fill(const Style& style, std::span<const std::vector<Point2>> rings)
{
    if (m_room.m_keepsAreas)
        AddArea(kLoggedFill, style, rings);
    else
        AddOutlines(style, rings);
}

void PlainLog::Mask(std::span<const std::vector<Point2>> rings)
{
    if (m_room.m_keepsAreas)
        AddArea(kLoggedMask, {}, rings);
}

void PlainLog::AddOutlines(const Style& style, std::span<const std::vector<Point2>> rings)
{
    const Style thin = StyleOfEdges(style);
    std::vector<PlainVertex> vertices;
    for (const std::vector<Point2>& ring : rings) {
        vertices.clear();
        for (const Point2 point : ring)
            vertices.push_back({point});
        Polyline(thin, vertices, true);
    }
}

void PlainLog::AddArea(unsigned kind, const Style& style, std::span<const std::vector<Point2>> rings)
{
    std::size_t size = 1 + 2 * kMostOfCount;
    for (const std::vector<Point2>& ring : rings) {
        if (!std::all_of(ring.begin(), ring.end(), [](Point2 point) { return IsDrawable(point); }))
            return;
        size += kMostOfCount + ring.size() * sizeof(Point2);
    }
    const StyleId id = StyleOf(StyleOfEdges(style));
    LogWriter log(Room(size));
    log.PutByte(kind);
    log.PutCount(id);
    log.PutCount(rings.size());
    for (const std::vector<Point2>& ring : rings) {
        log.PutCount(ring.size());
        for (const Point2 point : ring) {
            log.Put(point);
            m_reach.Add(point);
        }
    }
    End(log.Place());
}

void PlainLog::Text(const Style& style, const PlainText& text)
{
    if (!IsDrawn(text))
        return;
    const StyleId id = StyleOf(style);
    LogWriter log(Room(1 + RoomFor(text)));
    log.PutByte(kLoggedText);
    PutText(log, id, text);
    End(log.Place());
    AddText(text);
}

void PlainLog::AddText(const PlainText& text)
{
    m_reach.Add(text.point);
    m_reach.Add(text.point + text.up);
}

void PlainLog::LineOfText(Point2 point, double spread, std::span<const PlainRun> runs)
{
    if (!IsDrawable(point) || !std::isfinite(spread) || !AreAlike(runs))
        return PlainSink::LineOfText(point, spread, runs);
    std::vector<StyleId> styles; // all known before there is room: no entity is half there
    std::size_t size = 1 + sizeof(point) + sizeof(spread) + kMostOfCount;
    for (const PlainRun& run : runs) {
        styles.push_back(StyleOf(run.style));
        size += kMostOfCount + RoomFor(run.text);
    }
    LogWriter log(Room(size));
    log.PutByte(kLoggedLineOfText);
    log.Put(point);
    log.Put(spread);
    log.PutCount(runs.size());
    for (std::size_t i = 0; i < runs.size(); ++i) {
        log.PutCount(runs[i].blanks);
        PutText(log, styles[i], runs[i].text);
        AddText(runs[i].text);
    }
    End(log.Place());
}

void PlainLog::Insert(std::size_t block, Point2 point, double rotation, bool isMirrored)
{
    if (!IsDrawable(point) || !std::isfinite(rotation))
        return;
    const unsigned kind = kLoggedInsert | (isMirrored ? kIsMirrored : 0);
    if (IsZero(rotation))
        Add(kind, block, point);
    else
        Add(kind | kIsTurned, block, point, rotation);
    m_reach.Add(point);
}

std::vector<PlainLog::Part> PlainLog::PartsInOrder() const
{
    std::vector<Part> parts;
    for (std::uint32_t number = m_firstPart; number != LogRoom::kNoPart; number = parts.back().next)
        parts.push_back(m_room.m_parts[number]);
    std::stable_sort(parts.begin(), parts.end(),
                     [](const Part& a, const Part& b) { return a.place < b.place; });
    return parts;
}

void PlainLog::Replay(LogVisitor& visitor) const
{
    std::vector<PlainVertex> vertices;
    std::vector<Part> inOrder;
    if (m_room.m_hasPlaces)
        inOrder = PartsInOrder();
    std::size_t i = 0;
    for (std::uint32_t number = m_firstPart; number != LogRoom::kNoPart; ++i) {
        const Part& part = m_room.m_hasPlaces ? inOrder[i] : m_room.m_parts[number];
        LogReader reader(part.begin);
        for (std::uint32_t left = part.count; left > 0; --left)
            ReplayOne(reader, visitor, vertices);
        number = m_room.m_parts[number].next;
    }
}

} // namespace prepare
