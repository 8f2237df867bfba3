#include "prepare/write/PlainLog.h"

#include "base/Pi.h"
#include "prepare/plain/Curves.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <type_traits>

namespace prepare {

namespace {

enum LogKind : char {
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

template <class... Numbers>
bool AreFinite(Numbers... numbers)
{
    return (std::isfinite(numbers) && ...);
}

// Takes values out of a part of a log, in the order in which they were put in.
class LogReader {
public:
    LogReader(const char* bytes, std::size_t size) : m_place(bytes), m_end(bytes + size) {}

    bool IsAtEnd() const { return m_place == m_end; }

    template <class Value>
    Value Take()
    {
        static_assert(std::is_trivially_copyable_v<Value>);
        Value value;
        std::memcpy(&value, m_place, sizeof(value));
        m_place += sizeof(value);
        return value;
    }

    const char* Skip(std::size_t size)
    {
        const char* const place = m_place;
        m_place += size;
        return place;
    }

private:
    const char* m_place;
    const char* m_end;
};

struct PolylineHead {
    std::uint64_t count;
    bool isClosed;
    bool hasBulges;
};

void ReplayPolyline(LogReader& reader, LogVisitor& visitor, std::vector<PlainVertex>& vertices)
{
    const auto style = reader.Take<StyleId>();
    const auto head = reader.Take<PolylineHead>();
    vertices.clear();
    vertices.reserve(head.count);
    for (std::uint64_t i = 0; i < head.count; ++i) {
        const auto point = reader.Take<Point2>();
        vertices.push_back({point, head.hasBulges ? reader.Take<double>() : 0});
    }
    visitor.Polyline(style, vertices, head.isClosed);
}

void ReplayArea(LogReader& reader, LogVisitor& visitor, char kind)
{
    const auto style = reader.Take<StyleId>();
    std::vector<std::vector<Point2>> rings(reader.Take<std::uint64_t>());
    for (std::vector<Point2>& ring : rings) {
        ring.resize(reader.Take<std::uint64_t>());
        for (Point2& point : ring)
            point = reader.Take<Point2>();
    }
    if (kind == kLoggedFill)
        visitor.Fill(style, rings);
    else
        visitor.Mask(style, rings);
}

struct TextHead {
    Point2 point;
    Point2 along;
    Point2 up;
    std::uint64_t size;
    NameId style;
    Anchor anchor;
};

LoggedText TakeText(LogReader& reader)
{
    const auto head = reader.Take<TextHead>();
    const char* const text = reader.Skip(head.size);
    return {{text, head.size}, head.point, head.along, head.up, head.anchor, head.style};
}

void ReplayText(LogReader& reader, LogVisitor& visitor)
{
    const auto style = reader.Take<StyleId>();
    visitor.Text(style, TakeText(reader));
}

void ReplayLineOfText(LogReader& reader, LogVisitor& visitor)
{
    const auto point = reader.Take<Point2>();
    std::vector<LoggedRun> runs(reader.Take<std::uint64_t>());
    for (LoggedRun& run : runs) {
        run.blanks = reader.Take<std::uint64_t>();
        run.style = reader.Take<StyleId>();
        run.text = TakeText(reader);
    }
    visitor.LineOfText(point, runs);
}

struct InsertRecord {
    std::uint64_t block;
    Point2 point;
    double rotation;
    bool isMirrored;
};

struct RoundRecord {
    Point2 centre;
    Point2 majorAxis; // of a circle and an arc, its x is the radius
    double ratio;
    double start;
    double end;
};

void ReplayOne(LogReader& reader, LogVisitor& visitor, std::vector<PlainVertex>& vertices)
{
    const auto kind = reader.Take<char>();
    if (kind == kLoggedPolyline)
        return ReplayPolyline(reader, visitor, vertices);
    if (kind == kLoggedFill || kind == kLoggedMask)
        return ReplayArea(reader, visitor, kind);
    if (kind == kLoggedText)
        return ReplayText(reader, visitor);
    if (kind == kLoggedLineOfText)
        return ReplayLineOfText(reader, visitor);
    if (kind == kLoggedInsert) {
        const auto insert = reader.Take<InsertRecord>();
        return visitor.Insert(insert.block, insert.point, insert.rotation, insert.isMirrored);
    }
    const auto style = reader.Take<StyleId>();
    if (kind == kLoggedLine) {
        const auto start = reader.Take<Point2>();
        return visitor.Line(style, start, reader.Take<Point2>());
    }
    const auto round = reader.Take<RoundRecord>();
    if (kind == kLoggedCircle)
        visitor.Circle(style, round.centre, round.majorAxis.x);
    else if (kind == kLoggedArc)
        visitor.Arc(style, round.centre, round.majorAxis.x, round.start, round.end);
    else
        visitor.Ellipse(style, round.centre, round.majorAxis, round.ratio, round.start, round.end);
}

bool IsDrawn(const PlainText& text)
{
    return IsFinite(text.point) && IsFinite(text.along) && IsFinite(text.up) &&
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

std::size_t SizeOf(const PlainText& text)
{
    return sizeof(StyleId) + sizeof(TextHead) + text.text.size();
}

} // namespace

void LogVisitor::LineOfText(Point2, std::span<const LoggedRun> runs)
{
    for (const LoggedRun& run : runs)
        Text(run.style, run.text);
}

char* PlainLog::Room(std::size_t size)
{
    char* const place = m_storage.Room(size);
    if (m_parts.empty() || m_parts.back().end != place || m_parts.back().place != m_place)
        m_parts.push_back({m_place, place, place});
    m_parts.back().end = place + size;
    return place;
}

template <class... Values>
void PlainLog::Add(char kind, const Values&... values)
{
    char* place = Room(1 + (sizeof(values) + ...));
    *place++ = kind;
    const auto put = [&](const auto& value) {
        static_assert(std::is_trivially_copyable_v<std::remove_cvref_t<decltype(value)>>);
        std::memcpy(place, &value, sizeof(value));
        place += sizeof(value);
    };
    (put(values), ...);
}

void PlainLog::AddRound(Point2 centre, double radius)
{
    m_reach.Add(centre - Point2{radius, radius});
    m_reach.Add(centre + Point2{radius, radius});
}

void PlainLog::Line(const Style& style, Point2 start, Point2 end)
{
    if (!IsFinite(start) || !IsFinite(end))
        return;
    Add(kLoggedLine, m_styles.Of(style), start, end);
    m_reach.Add(start);
    m_reach.Add(end);
}

void PlainLog::Circle(const Style& style, Point2 centre, double radius)
{
    if (!IsFinite(centre) || !std::isfinite(radius) || !(radius > 0))
        return;
    Add(kLoggedCircle, m_styles.Of(style), RoundRecord{centre, {radius, 0}, 1, 0, 0});
    AddRound(centre, radius);
}

void PlainLog::Arc(const Style& style, Point2 centre, double radius, double start, double end)
{
    if (!IsFinite(centre) || !AreFinite(radius, start, end) || !(radius > 0) || !(end > start))
        return;
    if (end - start >= kTurn)
        return Circle(style, centre, radius);
    Add(kLoggedArc, m_styles.Of(style), RoundRecord{centre, {radius, 0}, 1, start, end});
    AddRound(centre, radius);
}

void PlainLog::Ellipse(const Style& style, Point2 centre, Point2 majorAxis, double ratio, double start,
                       double end)
{
    const double radius = Length(majorAxis);
    if (!IsFinite(centre) || !AreFinite(radius, ratio, start, end) || !(radius > 0) || !(ratio > 0) ||
        !(end > start))
        return;
    Add(kLoggedEllipse, m_styles.Of(style), RoundRecord{centre, majorAxis, ratio, start, end});
    AddRound(centre, radius);
}

void PlainLog::Polyline(const Style& style, std::span<const PlainVertex> vertices, bool isClosed)
{
    const auto isFinite = [](const PlainVertex& v) { return IsFinite(v.point) && std::isfinite(v.bulge); };
    if (vertices.size() < 2 || !std::all_of(vertices.begin(), vertices.end(), isFinite))
        return;
    const bool hasBulges =
        std::any_of(vertices.begin(), vertices.end(), [](const PlainVertex& v) { return v.bulge != 0; });
    const StyleId id = m_styles.Of(style);
    const PolylineHead head{vertices.size(), isClosed, hasBulges};
    const std::size_t each = sizeof(Point2) + (hasBulges ? sizeof(double) : 0);
    char* place = Room(1 + sizeof(id) + sizeof(head) + vertices.size() * each);
    const auto put = [&](const auto& value) {
        std::memcpy(place, &value, sizeof(value));
        place += sizeof(value);
    };
    put(kLoggedPolyline);
    put(id);
    put(head);
    for (const PlainVertex& vertex : vertices) {
        put(vertex.point);
        if (hasBulges)
            put(vertex.bulge);
        m_reach.Add(vertex.point);
    }
}

void PlainLog::Fill(const Style& style, std::span<const std::vector<Point2>> rings)
{
    AddArea(kLoggedFill, style, rings);
}

void PlainLog::Mask(std::span<const std::vector<Point2>> rings)
{
    AddArea(kLoggedMask, {}, rings);
}

void PlainLog::AddArea(char kind, const Style& style, std::span<const std::vector<Point2>> rings)
{
    std::uint64_t size = sizeof(std::uint64_t);
    for (const std::vector<Point2>& ring : rings) {
        if (!std::all_of(ring.begin(), ring.end(), [](Point2 point) { return IsFinite(point); }))
            return;
        size += sizeof(std::uint64_t) + ring.size() * sizeof(Point2);
    }
    Style thin = style; // the edges of a fill have no width
    thin.weight = 0;
    thin.width = 0;
    thin.lineType = nullptr;
    thin.lineTypeScale = 1;
    const StyleId id = m_styles.Of(thin);
    char* place = Room(1 + sizeof(id) + size);
    const auto put = [&](const auto& value) {
        std::memcpy(place, &value, sizeof(value));
        place += sizeof(value);
    };
    put(kind);
    put(id);
    put(std::uint64_t{rings.size()});
    for (const std::vector<Point2>& ring : rings) {
        put(std::uint64_t{ring.size()});
        for (const Point2 point : ring) {
            put(point);
            m_reach.Add(point);
        }
    }
}

void PlainLog::Text(const Style& style, const PlainText& text)
{
    if (!IsDrawn(text))
        return;
    char* place = Room(1 + SizeOf(text));
    *place++ = kLoggedText;
    PutText(place, style, text);
}

char* PlainLog::PutText(char* place, const Style& style, const PlainText& text)
{
    const StyleId id = m_styles.Of(style);
    const TextHead head{text.point, text.along, text.up, text.text.size(), text.style, text.anchor};
    std::memcpy(place, &id, sizeof(id));
    std::memcpy(place + sizeof(id), &head, sizeof(head));
    // NOLINTNEXTLINE(bugprone-not-null-terminated-result): its size is kept, and no zero after it
    std::memcpy(place + sizeof(id) + sizeof(head), text.text.data(), text.text.size());
    m_reach.Add(text.point);
    m_reach.Add(text.point + text.up);
    return place + SizeOf(text);
}

void PlainLog::LineOfText(Point2 point, std::span<const PlainRun> runs)
{
    if (!IsFinite(point) || !AreAlike(runs))
        return PlainSink::LineOfText(point, runs);
    std::uint64_t size = 1 + sizeof(point) + sizeof(size);
    for (const PlainRun& run : runs)
        size += sizeof(size) + SizeOf(run.text);
    char* place = Room(size);
    const auto put = [&](const auto& value) {
        std::memcpy(place, &value, sizeof(value));
        place += sizeof(value);
    };
    put(kLoggedLineOfText);
    put(point);
    put(std::uint64_t{runs.size()});
    for (const PlainRun& run : runs) {
        put(std::uint64_t{run.blanks});
        place = PutText(place, run.style, run.text);
    }
}

void PlainLog::Insert(std::size_t block, Point2 point, double rotation, bool isMirrored)
{
    if (!IsFinite(point) || !std::isfinite(rotation))
        return;
    Add(kLoggedInsert, InsertRecord{block, point, rotation, isMirrored});
    m_reach.Add(point);
}

void PlainLog::Replay(LogVisitor& visitor) const
{
    std::vector<PlainVertex> vertices;
    const auto replay = [&](const std::vector<Part>& parts) {
        for (const Part& part : parts) {
            LogReader reader(part.begin, static_cast<std::size_t>(part.end - part.begin));
            while (!reader.IsAtEnd())
                ReplayOne(reader, visitor, vertices);
        }
    };
    if (!m_hasPlaces)
        return replay(m_parts);
    std::vector<Part> parts = m_parts;
    std::stable_sort(parts.begin(), parts.end(),
                     [](const Part& a, const Part& b) { return a.place < b.place; });
    replay(parts);
}

} // namespace prepare
