// Keeps plain entities, as compactly as they come, until they can be written.
#pragma once

#include "prepare/plain/Placement.h"
#include "prepare/plain/Plain.h"
#include "prepare/write/LogStorage.h"
#include "prepare/write/StyleTable.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <string_view>
#include <vector>

namespace prepare {

// What PlainText is, with its text in the log.
struct LoggedText {
    std::string_view text;
    Point2 point;
    Point2 along;
    Point2 up;
    Anchor anchor = Anchor::Start;
    NameId style = kNoName;
};

// What PlainRun is.
struct LoggedRun {
    StyleId style = 0;
    LoggedText text;
    std::size_t blanks = 0;
};

// Takes what a log kept, in the order in which it came. References are good during the call.
class LogVisitor {
public:
    virtual void Line(StyleId style, Point2 start, Point2 end) = 0;
    virtual void Circle(StyleId style, Point2 centre, double radius) = 0;
    virtual void Arc(StyleId style, Point2 centre, double radius, double start, double end) = 0;
    virtual void Ellipse(StyleId style, Point2 centre, Point2 majorAxis, double ratio, double start,
                         double end) = 0;
    virtual void Polyline(StyleId style, std::span<const PlainVertex> vertices, bool isClosed) = 0;
    // The style is as thin as any.
    virtual void Fill(StyleId style, std::span<const std::vector<Point2>> rings) = 0;
    // Left out by those that cannot hide what was drawn before.
    virtual void Mask(StyleId, std::span<const std::vector<Point2>>) {}
    virtual void Text(StyleId style, const LoggedText& text) = 0;
    // One that knows no runs takes texts.
    virtual void LineOfText(Point2 point, double spread, std::span<const LoggedRun> runs);
    virtual void Insert(std::size_t block, Point2 point, double rotation, bool isMirrored) = 0;

protected:
    ~LogVisitor() = default;
};

class PlainLog;

// What all logs of a drawing share: of blocks there may be as many as inserts, and most have little in them.
class LogRoom {
public:
    // keepsAreas: whether areas stay areas. Otherwise their edges are polylines, and what only hides is left
    // out.
    explicit LogRoom(bool keepsAreas = true) : m_keepsAreas(keepsAreas) {}

    const StyleTable& Styles() const { return m_styles; }

private:
    friend class PlainLog;

    // Entities that follow each other without one of another log in between, and with the same place.
    struct Part {
        std::uint64_t place;
        const char* begin;
        std::uint32_t count; // of entities
        std::uint32_t next;  // of the same log, in m_parts; kNoPart: there is none
    };
    static constexpr std::uint32_t kNoPart = UINT32_MAX;

    const bool m_keepsAreas;
    StyleTable m_styles;
    LogStorage m_storage;
    std::deque<Part> m_parts;
    bool m_hasPlaces = false; // in any log
    struct {
        const PlainLog* log = nullptr; // to which something came last
        Part* part = nullptr;          // of that log
        const char* end = nullptr;     // of that part
    } m_last;
};

// A line takes 34 bytes, or few more. What has a number that is not finite, or nothing to see, is left out.
// room must outlive the log, which has to stay where it is.
class PlainLog final : public PlainSink {
public:
    explicit PlainLog(LogRoom& room) : m_room(room) {}
    PlainLog(const PlainLog&) = delete;
    PlainLog& operator=(const PlainLog&) = delete;

    void Line(const Style& style, Point2 start, Point2 end) override;
    void Circle(const Style& style, Point2 centre, double radius) override;
    void Arc(const Style& style, Point2 centre, double radius, double start, double end) override;
    void Ellipse(const Style& style, Point2 centre, Point2 majorAxis, double ratio, double start,
                 double end) override;
    void Polyline(const Style& style, std::span<const PlainVertex> vertices, bool isClosed) override;
    void Fill(const Style& style, std::span<const std::vector<Point2>> rings) override;
    void Mask(std::span<const std::vector<Point2>> rings) override;
    void Text(const Style& style, const PlainText& text) override;
    void LineOfText(Point2 point, double spread, std::span<const PlainRun> runs) override;
    void Insert(std::size_t block, Point2 point, double rotation, bool isMirrored) override;

    // What comes from now on has that place in the order in which it is replayed. Without places, and of
    // equal ones, that is the order in which it came.
    void UsePlace(std::uint64_t place)
    {
        m_place = place;
        m_room.m_hasPlaces = true;
    }

    void Replay(LogVisitor& visitor) const;
    bool IsEmpty() const { return m_firstPart == LogRoom::kNoPart; }
    // Around all points of its entities; of what is inserted, around the point alone.
    const Box& Reach() const { return m_reach; }

private:
    using Part = LogRoom::Part;

    char* Room(std::size_t size);
    void AddPart(const char* begin);
    void End(char* end);
    // number is that of a style or a block.
    template <class... Values>
    void Add(unsigned kind, std::uint64_t number, const Values&... values);
    void AddArea(unsigned kind, const Style& style, std::span<const std::vector<Point2>> rings);
    void AddOutlines(const Style& style, std::span<const std::vector<Point2>> rings);
    void AddText(const PlainText& text);
    void AddRound(Point2 centre, double radius);
    StyleId StyleOf(const Style& style) { return m_room.m_styles.Of(style); }
    std::vector<Part> PartsInOrder() const;

    LogRoom& m_room;
    std::uint32_t m_firstPart = LogRoom::kNoPart;
    std::uint32_t m_lastPart = LogRoom::kNoPart;
    std::uint64_t m_place = 0;
    Box m_reach;
};

} // namespace prepare
