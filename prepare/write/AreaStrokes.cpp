#include "prepare/write/AreaStrokes.h"

#include "base/Pi.h"
#include "prepare/write/EdgeGrid.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

namespace prepare {

namespace {

// Widths are written in hundredths.
constexpr double kWidthStep = 0.01;
constexpr double kWidest = 1e7;

// Strips: as many as that, of two strokes at least, where an area has more edges than can be covered from its
// edges at once. They are narrower in a jagged area: along its short edges go narrow strokes only.
constexpr double kStrips = 10, kNarrowestStrip = 2;
constexpr std::size_t kEdgesWithoutStrips = 8;
constexpr std::size_t kMostStrips = 200;
// Where strips meet the edges, the strokes along these are so much wider than the strips, overlap them by
// that, and let that of a strip's ends free.
constexpr double kEdgeInStrips = 1.25, kOverlap = 0.1, kFreeEnd = 0.5, kStripStep = 0.95;
// Strips overlap by that many strokes at least: such a stroke is about a pixel, and no seam is to be seen.
constexpr double kStripOverlap = 0.5;

// Strokes along edges become narrower by this until they fit. A point that is as far from its nearest edge as
// a stroke is wide has twice the room across that edge: so one of a stroke's half width does, with some
// overlap.
constexpr double kNarrower = 0.55;
constexpr double kNarrowest = 0.5;      // strokes, or in a small area,
constexpr double kNarrowestShare = 0.6; // of how wide it is all along

// Strokes along two edges are one stroke where the edges turn by less, or so much that one alone does not
// reach the corner.
constexpr double kSlight = 35 * kPi / 180, kSharp = kPi / 2 + 1e-6, kSharpest = 175 * kPi / 180;
constexpr double kMostBeyond = 4; // widths, past an edge's end where the area goes around it

// How far outside a stroke may be, in strokes.
constexpr double kOutside = 1.0 / 200;

constexpr std::uint64_t kLooksAnyhow = 2000, kLooksOfEdge = 512;
constexpr std::size_t kPointsAnyhow = 400, kPointsOfEdge = 6;
constexpr std::uint32_t kNone = UINT32_MAX;

// An edge, seen so that the area may be to its left.
struct Side {
    Point2 start;
    Point2 along; // of length 1
    double length;
    std::uint32_t edge;
    std::uint32_t previous;
    std::uint32_t next;
    double turn;        // at its end, to the left
    double widest = 0;  // of the strokes that fit along it
    bool isMet = false; // by other edges than its neighbours

    Point2 Across() const { return {-along.y, along.x}; }
    Point2 At(double x, double y) const { return start + x * along + y * Across(); }
    Point2 Seen(Point2 p) const { return {Dot(p - start, along), Cross(along, p - start)}; }
};

// A part of a side, to be covered.
struct Stretch {
    std::uint32_t side;
    double from;
    double to;
};

// A part of a side beside which a stroke fits.
struct Piece {
    std::uint32_t side;
    double from;
    double to;
    bool reachesStart;
    bool reachesEnd;
    bool isDrawn = false;
};

struct Range {
    double from;
    double to;
};

double WrittenWidth(double width)
{
    return std::floor(width / kWidthStep + 1e-9) * kWidthStep;
}

// How far past an edge's end a stroke has to go where the area goes around it.
double Beyond(double turn, double width)
{
    return turn < 0 ? width * std::min(std::tan(-turn / 2), kMostBeyond) : 0;
}

// How far before the end of an edge a stroke has to end where the next one is in its way.
double TrimAt(double sharpTurn, double width)
{
    return width * std::tan(sharpTurn - kPi / 2);
}

// The x of what the segment has between the two y; nothing where that is nothing.
std::optional<Range> Between(Point2 a, Point2 b, double low, double high)
{
    if (a.y > b.y)
        std::swap(a, b);
    if (b.y <= low || a.y >= high)
        return std::nullopt;
    const double height = b.y - a.y;
    const double first = a.y >= low ? a.x : a.x + (low - a.y) / height * (b.x - a.x);
    const double last = b.y <= high ? b.x : a.x + (high - a.y) / height * (b.x - a.x);
    return Range{std::min(first, last), std::max(first, last)};
}

// Calls take(from, to) for what the blocked ranges leave of a range.
template <class Take>
void ForFree(std::vector<Range>& blocked, Range all, const Take& take)
{
    std::sort(blocked.begin(), blocked.end(), [](Range a, Range b) { return a.from < b.from; });
    double from = all.from;
    for (const Range& range : blocked) {
        if (range.from > from)
            take(from, std::min(range.from, all.to));
        from = std::max(from, range.to);
        if (from >= all.to)
            return;
    }
    take(from, all.to);
}

class Coverer {
public:
    Coverer(std::span<const std::vector<Point2>> rings, double stroke, std::uint64_t spareLooks);

    std::vector<AreaStroke> Cover();
    // What is left of the spare looks.
    std::uint64_t SpareLooks() const
    {
        const std::uint64_t looks = m_grid.Looks() - std::min(m_grid.Looks(), m_ownLooks);
        return m_spareLooks - std::min(m_spareLooks, looks);
    }

private:
    static std::vector<AreaEdge> EdgesOf(std::span<const std::vector<Point2>> rings);
    void AddSides(std::size_t firstEdge, std::size_t count, bool isReversed);

    bool IsRectangle() const;
    std::vector<AreaStroke> OneStroke() const;
    void FindInside();
    bool IsMet(const Side& side);
    std::vector<double> WidthsUpTo(double widest) const;
    double WidestAlong(const Side& side, const std::vector<double>& widths);

    bool AddStrips(double height);
    void AddStrip(double low, double height);

    bool Joins(double turn, double width) const;
    bool FitsAlong(const Side& side, double width) const;
    void CoverEdges(double width);
    void JoinRest();
    void FindPieces(const Stretch& stretch, double width);
    void FindBlocked(const Side& side, Range range, double width);
    void Connect(double width);
    bool IsJoined(const Piece& piece, double width) const;
    void DrawFrom(std::uint32_t first, double width);
    void KeepCorners(double width);
    void Keep(std::uint32_t side, double from, double to);
    bool IsSpent() const;

    double m_stroke;
    std::size_t m_rings;
    std::vector<AreaEdge> m_edges;
    EdgeGrid m_grid;
    std::uint64_t m_ownLooks;
    std::uint64_t m_spareLooks;
    Box m_box;
    double m_meanHeight; // over the edges: of a triangle, how far its middle is from them; if jagged, less
    double m_thin;       // the least width
    std::vector<Side> m_sides;
    std::vector<Stretch> m_open;                   // what is not covered
    std::vector<Stretch> m_rest;                   // what will not be, by the present width
    std::vector<Piece> m_pieces;                   // of the present width
    std::vector<std::uint32_t> m_atStart, m_atEnd; // by side: the piece that reaches its start, its end
    std::vector<Range> m_blocked;
    std::vector<double> m_crossings;
    std::vector<AreaStroke> m_strokes;
    std::size_t m_points = 0;
};

std::vector<AreaEdge> Coverer::EdgesOf(std::span<const std::vector<Point2>> rings)
{
    std::vector<AreaEdge> edges;
    for (const std::vector<Point2>& ring : rings)
        for (std::size_t i = 0; i < ring.size(); ++i)
            edges.push_back({ring[i], ring[(i + 1) % ring.size()]});
    return edges;
}

Coverer::Coverer(std::span<const std::vector<Point2>> rings, double stroke, std::uint64_t spareLooks)
    : m_stroke(stroke), m_rings(rings.size()), m_edges(EdgesOf(rings)), m_grid(m_edges),
      m_ownLooks(kLooksAnyhow + kLooksOfEdge * m_edges.size()), m_spareLooks(spareLooks)
{
    double area = 0, length = 0;
    std::size_t first = 0;
    for (const std::vector<Point2>& ring : rings) {
        double twice = 0;
        for (std::size_t i = first; i < first + ring.size(); ++i) {
            m_box.Add(m_edges[i].start);
            twice += Cross(m_edges[i].start - ring[0], m_edges[i].end - ring[0]);
            length += Length(m_edges[i].end - m_edges[i].start);
        }
        area += std::fabs(twice) / 2;
        AddSides(first, ring.size(), false);
        AddSides(first, ring.size(), true);
        first += ring.size();
    }
    m_meanHeight = 2 * area / length;
    m_thin =
        std::clamp(kNarrowestShare * m_meanHeight, kWidthStep, std::max(kNarrowest * stroke, kWidthStep));
    m_atStart.assign(m_sides.size(), kNone);
    m_atEnd.assign(m_sides.size(), kNone);
}

void Coverer::AddSides(std::size_t firstEdge, std::size_t count, bool isReversed)
{
    const std::size_t firstSide = m_sides.size();
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t number = firstEdge + (isReversed ? count - 1 - i : i);
        const AreaEdge& edge = m_edges[number];
        const Point2 start = isReversed ? edge.end : edge.start, end = isReversed ? edge.start : edge.end;
        const double length = Length(end - start);
        m_sides.push_back({start, (1 / length) * (end - start), length, static_cast<std::uint32_t>(number),
                           static_cast<std::uint32_t>(firstSide + (i + count - 1) % count),
                           static_cast<std::uint32_t>(firstSide + (i + 1) % count), 0, 0, false});
    }
    for (std::size_t i = firstSide; i < m_sides.size(); ++i) {
        const Point2 along = m_sides[i].along, next = m_sides[m_sides[i].next].along;
        m_sides[i].turn = std::atan2(Cross(along, next), Dot(along, next));
    }
}

bool Coverer::IsSpent() const
{
    return m_grid.Looks() > m_ownLooks + m_spareLooks ||
           m_points > kPointsAnyhow + kPointsOfEdge * m_edges.size();
}

std::vector<AreaStroke> Coverer::Cover()
{
    const double across = std::min(m_box.Width(), m_box.Height());
    if (IsRectangle())
        return OneStroke();
    double width = m_edges.size() == 3 ? m_meanHeight + kWidthStep : 0.75 * across;
    if (m_edges.size() > kEdgesWithoutStrips) {
        double height = std::max(std::min(across / kStrips, m_meanHeight), kNarrowestStrip * m_stroke);
        while (!AddStrips(WrittenWidth(height)))
            height *= 2;
        width = std::min(width, kEdgeInStrips * height);
    }
    const std::vector<double> widths = WidthsUpTo(width);
    FindInside();
    for (const Stretch& stretch : m_open)
        m_sides[stretch.side].widest = WidestAlong(m_sides[stretch.side], widths);
    for (auto each = widths.rbegin(); each != widths.rend() && !m_open.empty() && !IsSpent(); ++each)
        CoverEdges(*each);
    return std::move(m_strokes);
}

bool Coverer::IsRectangle() const
{
    constexpr double kNothing = 1e-4;
    return m_edges.size() == 4 && m_rings == 1 &&
           std::all_of(m_sides.begin(), m_sides.begin() + 4, [&](const Side& side) {
               return std::fabs(std::fabs(side.turn) - kPi / 2) < kNothing && side.turn * m_sides[0].turn > 0;
           });
}

std::vector<AreaStroke> Coverer::OneStroke() const
{
    const Side& longer = m_sides[0].length > m_sides[1].length ? m_sides[0] : m_sides[1];
    const Side& shorter = m_sides[longer.next];
    const double width = std::max(WrittenWidth(shorter.length), kWidthStep);
    if (width > kWidest)
        return {};
    const Point2 middle = 0.5 * shorter.length * shorter.along;
    return {{{longer.start + middle, longer.At(longer.length, 0) + middle},
             static_cast<std::int32_t>(std::lround(width / kWidthStep))}};
}

// From the thinnest, in even steps.
std::vector<double> Coverer::WidthsUpTo(double widest) const
{
    const double last = std::clamp(widest, m_thin, kWidest);
    const auto steps = static_cast<int>(std::ceil(std::log(m_thin / last) / std::log(kNarrower) - 0.1));
    std::vector<double> widths{WrittenWidth(m_thin)};
    for (int i = 1; i <= steps; ++i)
        widths.push_back(WrittenWidth(m_thin * std::pow(last / m_thin, static_cast<double>(i) / steps)));
    return widths;
}

// The widest stroke that fits anywhere along the side. Where one does not fit, no wider one does.
double Coverer::WidestAlong(const Side& side, const std::vector<double>& widths)
{
    double widest = 0;
    for (const double width : widths) {
        if (IsSpent())
            break;
        const Range range{0, side.length};
        FindBlocked(side, range, width);
        bool isFree = false;
        ForFree(m_blocked, range, [&](double from, double to) { isFree |= from < to; });
        if (!isFree)
            break;
        widest = width;
    }
    return widest;
}

// Finds on which sides of the edges the area is. Along edges that nothing meets it stays on the same side; of
// others it may be on either.
void Coverer::FindInside()
{
    bool isKnown = false, isInside = false;
    for (std::uint32_t i = 0; i < m_sides.size() && !IsSpent(); ++i) {
        Side& side = m_sides[i];
        side.isMet = IsMet(side);
        if (side.previous + 1 != i)
            isKnown = false; // a ring begins
        if (!side.isMet && !isKnown)
            isInside = m_grid.IsInside(side.At(side.length / 2, kOutside * m_stroke));
        isKnown = !side.isMet;
        if (side.isMet || isInside)
            m_open.push_back({i, 0, side.length});
    }
}

// Whether any edge but its neighbours meets the side.
bool Coverer::IsMet(const Side& side)
{
    const double close = kOutside * m_stroke;
    const std::uint32_t before = m_sides[side.previous].edge, after = m_sides[side.next].edge;
    Box box;
    box.Add(side.start);
    box.Add(side.At(side.length, 0));
    for (const std::uint32_t number : m_grid.Near(box)) {
        if (number == side.edge)
            continue;
        const bool isNeighbour = number == before || number == after;
        const double from = isNeighbour ? close : -close;
        const std::optional<Range> met =
            Between(side.Seen(m_edges[number].start), side.Seen(m_edges[number].end), -close, close);
        if (met && met->to > from && met->from < side.length - from)
            return true;
    }
    return false;
}

// Covers what is farther from the edges than the strokes along them reach. The strips are along the longer
// side of the area. False: there would be too many.
bool Coverer::AddStrips(double height)
{
    const bool isUpright = m_box.Height() > m_box.Width();
    const double keep = (kEdgeInStrips - kOverlap) * height;
    const double low = (isUpright ? m_box.min.x : m_box.min.y) + keep;
    const double high = (isUpright ? m_box.max.x : m_box.max.y) - keep;
    m_strokes.clear();
    if (!(low < high) || !(height < kWidest))
        return true;
    const double most = std::min(kStripStep * height, height - kStripOverlap * m_stroke);
    const double more = std::ceil(std::max(high - low - height, 0.0) / most);
    const double step = more > 0 ? (high - low - height) / more : 0;
    const double first = more > 0 ? low : (low + high - height) / 2;
    for (double i = 0; i <= more; ++i) { // NOLINT(cert-flp30-c): whole numbers
        AddStrip(first + i * step, height);
        if (m_strokes.size() > kMostStrips)
            return false;
    }
    return true;
}

void Coverer::AddStrip(double low, double height)
{
    const bool isUpright = m_box.Height() > m_box.Width();
    const auto turned = [isUpright](Point2 p) { return isUpright ? Point2{p.y, p.x} : p; };
    const double high = low + height, middle = low + height / 2, outside = kOutside * m_stroke;
    m_blocked.clear();
    m_crossings.clear();
    for (const AreaEdge& edge : m_edges) {
        const Point2 a = turned(edge.start), b = turned(edge.end);
        if (const std::optional<Range> range = Between(a, b, low + outside, high - outside))
            m_blocked.push_back(*range);
        if ((a.y <= middle) != (b.y <= middle))
            m_crossings.push_back(a.x + (middle - a.y) / (b.y - a.y) * (b.x - a.x));
    }
    std::sort(m_crossings.begin(), m_crossings.end());
    const Point2 min = turned(m_box.min), max = turned(m_box.max);
    ForFree(m_blocked, {min.x, max.x}, [&](double from, double to) {
        if (to - from < 2 * kFreeEnd * height)
            return;
        const auto before = std::lower_bound(m_crossings.begin(), m_crossings.end(), (from + to) / 2);
        if ((before - m_crossings.begin()) % 2 == 0)
            return;
        const double free = (kFreeEnd - kOverlap) * height;
        m_strokes.push_back({{turned({from + free, middle}), turned({to - free, middle})},
                             static_cast<std::int32_t>(std::lround(height / kWidthStep))});
    });
}

// Whether the strokes along two edges are one. A sharp corner needs that; elsewhere it must not matter how
// the corner of a stroke is drawn.
bool Coverer::Joins(double turn, double width) const
{
    if (turn < kSlight)
        return turn > -kSlight;
    return turn < kSharpest && (turn > kSharp || (1 / std::cos(turn / 2) - 1) * width / 2 < m_thin);
}

// Whether the middle of a stroke along the side is not shorter than nothing.
bool Coverer::FitsAlong(const Side& side, double width) const
{
    double ends = 0;
    for (const double turn : {m_sides[side.previous].turn, side.turn})
        if (Joins(turn, width))
            ends += width / 2 * std::tan(turn / 2);
    return ends < side.length;
}

void Coverer::Keep(std::uint32_t side, double from, double to)
{
    if (to - from > kOutside * m_stroke)
        m_rest.push_back({side, from, to});
}

// Lays strokes of that width along the edges, as far as they fit and as something is left to cover.
void Coverer::CoverEdges(double width)
{
    m_pieces.clear();
    m_rest.clear();
    for (const Stretch& stretch : m_open) {
        if (IsSpent())
            return;
        const Side& side = m_sides[stretch.side];
        if (width <= side.widest && FitsAlong(side, width))
            FindPieces(stretch, width);
        else
            m_rest.push_back(stretch);
    }
    Connect(width);
    for (const Piece& piece : m_pieces)
        m_atStart[piece.side] = m_atEnd[piece.side] = kNone;
    JoinRest();
    std::swap(m_open, m_rest);
}

// What is left around a corner may have been noted twice. A side has one piece that reaches its end.
void Coverer::JoinRest()
{
    std::sort(m_rest.begin(), m_rest.end(), [](const Stretch& a, const Stretch& b) {
        return a.side != b.side ? a.side < b.side : a.from < b.from;
    });
    std::size_t count = 0;
    for (const Stretch& stretch : m_rest) {
        if (count > 0 && m_rest[count - 1].side == stretch.side && stretch.from <= m_rest[count - 1].to)
            m_rest[count - 1].to = std::max(m_rest[count - 1].to, stretch.to);
        else
            m_rest[count++] = stretch;
    }
    m_rest.resize(count);
}

// Collects in m_blocked what other edges leave no room for along the side.
void Coverer::FindBlocked(const Side& side, Range range, double width)
{
    const double outside = std::min(kOutside * m_stroke, width / 8);
    const std::uint32_t before = m_sides[side.previous].edge, after = m_sides[side.next].edge;
    m_blocked.clear();
    Box box;
    for (const double x : {range.from, range.to})
        for (const double y : {0.0, width})
            box.Add(side.At(x, y));
    for (const std::uint32_t number : m_grid.Near(box)) {
        if (number == side.edge || number == before || number == after)
            continue; // these leave room wherever the corners do
        const AreaEdge& edge = m_edges[number];
        const std::optional<Range> blocked =
            Between(side.Seen(edge.start), side.Seen(edge.end), outside, width - outside);
        if (blocked && blocked->to > range.from && blocked->from < range.to)
            m_blocked.push_back(*blocked);
    }
}

void Coverer::FindPieces(const Stretch& stretch, double width)
{
    const Side& side = m_sides[stretch.side];
    const double close = kOutside * m_stroke;
    const bool isAtStart = stretch.from < close;
    const bool isAtEnd = stretch.to > side.length - close;
    const double before = m_sides[side.previous].turn;
    const double atStart = isAtStart ? Beyond(before, width) : 0;
    const double atEnd = isAtEnd ? Beyond(side.turn, width) : 0;
    const double overlap = kOverlap * width;
    const Range range{isAtStart ? -atStart : std::max(stretch.from - overlap, 0.0),
                      isAtEnd ? side.length + atEnd : std::min(stretch.to + overlap, side.length)};
    FindBlocked(side, range, width);
    // Along both edges of a sharp corner a stroke goes on, or it has to end before it.
    const double half = width / 2;
    double covered = stretch.from;
    ForFree(m_blocked, range, [&](double from, double to) {
        const bool reachesStart = isAtStart && from < close - atStart &&
                                  (!Joins(before, width) || to > half * std::tan(before / 2));
        const bool reachesEnd =
            isAtEnd && to > side.length + atEnd - close &&
            (!Joins(side.turn, width) || from < side.length - half * std::tan(side.turn / 2));
        if (!reachesStart && before > kSharp)
            from = std::max(from, TrimAt(before, width));
        if (!reachesEnd && side.turn > kSharp)
            to = std::min(to, side.length - TrimAt(side.turn, width));
        const double first = std::max(from, stretch.from), last = std::min(to, stretch.to);
        if (last - first < close && last - first < (stretch.to - stretch.from) / 2)
            return;
        Keep(stretch.side, covered, first);
        covered = last;
        if (side.isMet && !m_grid.IsInside(side.At((first + last) / 2, width / 8)))
            return;
        const Piece piece{stretch.side, from, to, reachesStart, reachesEnd};
        const auto number = static_cast<std::uint32_t>(m_pieces.size());
        if (piece.reachesStart)
            m_atStart[stretch.side] = number;
        if (piece.reachesEnd)
            m_atEnd[stretch.side] = number;
        m_pieces.push_back(piece);
        // Around a corner, a narrower stroke may get farther.
        if (isAtStart && !piece.reachesStart && from < close)
            Keep(stretch.side, 0, std::min(width / 2, side.length));
        if (isAtEnd && !piece.reachesEnd && to > side.length - close)
            Keep(stretch.side, std::max(side.length - width / 2, 0.0), side.length);
    });
    Keep(stretch.side, covered, stretch.to);
}

// Whether the piece goes on along the next edge.
bool Coverer::IsJoined(const Piece& piece, double width) const
{
    const Side& side = m_sides[piece.side];
    return piece.reachesEnd && m_atStart[side.next] != kNone && Joins(side.turn, width);
}

// Draws the pieces, those that join as one stroke.
void Coverer::Connect(double width)
{
    KeepCorners(width);
    for (std::uint32_t i = 0; i < m_pieces.size(); ++i) {
        const std::uint32_t before = m_atEnd[m_sides[m_pieces[i].side].previous];
        const bool isInner = m_pieces[i].reachesStart && before != kNone && IsJoined(m_pieces[before], width);
        if (!isInner)
            DrawFrom(i, width);
    }
    for (std::uint32_t i = 0; i < m_pieces.size(); ++i)
        if (!m_pieces[i].isDrawn)
            DrawFrom(i, width); // all around
}

// Notes what strokes leave of sharp corners. One that ends in such a corner is cut off where its end fits.
void Coverer::KeepCorners(double width)
{
    for (Piece& piece : m_pieces) {
        const Side& side = m_sides[piece.side];
        const Side& previous = m_sides[side.previous];
        const std::uint32_t before = m_atEnd[side.previous];
        const bool isJoinedBefore =
            piece.reachesStart && before != kNone && IsJoined(m_pieces[before], width);
        const bool isJoinedAfter = IsJoined(piece, width);
        const auto left = [&](double turn, bool isJoined) {
            if (isJoined)
                return (1 / std::cos(turn / 2) - 1) * width / 2 < m_thin ? 0 : width / 2 * std::tan(turn / 2);
            return turn > kSharp ? TrimAt(turn, width) : 0;
        };
        if (piece.reachesStart && previous.turn > 0) {
            const double free = left(previous.turn, isJoinedBefore);
            Keep(piece.side, 0, std::min(free, side.length));
            if (!isJoinedBefore)
                piece.from = std::max(piece.from, free);
        }
        if (piece.reachesEnd && side.turn > 0) {
            const double free = left(side.turn, isJoinedAfter);
            Keep(piece.side, std::max(side.length - free, 0.0), side.length);
            if (!isJoinedAfter)
                piece.to = std::min(piece.to, side.length - free);
        }
    }
}

void Coverer::DrawFrom(std::uint32_t first, double width)
{
    AreaStroke stroke{{}, static_cast<std::int32_t>(std::lround(width / kWidthStep))};
    const double half = width / 2;
    const Piece& begin = m_pieces[first];
    const bool isClosed = [&] {
        const std::uint32_t before = m_atEnd[m_sides[begin.side].previous];
        return begin.reachesStart && before != kNone && IsJoined(m_pieces[before], width);
    }();
    const auto middleOf = [&](const Side& side) {
        double from = 0, to = side.length;
        from += half * std::tan(m_sides[side.previous].turn / 2);
        to -= half * std::tan(side.turn / 2);
        return (from + to) / 2;
    };
    const auto endOf = [&](const Piece& piece) {
        const Side& side = m_sides[piece.side];
        return IsJoined(piece, width) ? side.length - half * std::tan(side.turn / 2) : piece.to;
    };
    double from = begin.from;
    if (isClosed)
        stroke.points.push_back(m_sides[begin.side].At(middleOf(m_sides[begin.side]), half));
    else if (from < endOf(begin)) // else it would run back to the corner
        stroke.points.push_back(m_sides[begin.side].At(from, half));
    std::uint32_t at = first;
    while (true) {
        Piece& piece = m_pieces[at];
        piece.isDrawn = true;
        const Side& side = m_sides[piece.side];
        if (!IsJoined(piece, width)) {
            if (from < piece.to)
                stroke.points.push_back(side.At(piece.to, half));
            break;
        }
        const Side& next = m_sides[side.next];
        stroke.points.push_back(side.At(endOf(piece), half));
        from = half * std::tan(side.turn / 2);
        at = m_atStart[side.next];
        if (at == first) {
            stroke.points.push_back(next.At(middleOf(next), half));
            break;
        }
    }
    if (stroke.points.size() < 2)
        return;
    m_points += stroke.points.size();
    m_strokes.push_back(std::move(stroke));
}

} // namespace

std::vector<AreaStroke> CoverArea(std::span<const std::vector<Point2>> rings, double stroke,
                                  std::uint64_t& spareLooks)
{
    if (rings.empty())
        return {};
    Coverer coverer(rings, stroke, spareLooks);
    std::vector<AreaStroke> strokes = coverer.Cover();
    spareLooks = coverer.SpareLooks();
    return strokes;
}

} // namespace prepare
