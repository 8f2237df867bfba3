// The windows of a sheet: VIEWPORT entities, through which it shows the model space.
#pragma once

#include "prepare/drawing/Drawing.h"
#include "prepare/plain/Converter.h"
#include "prepare/plain/Sheet.h"
#include "prepare/report/Report.h"

#include <cstddef>
#include <set>
#include <vector>

namespace prepare {

struct Window {
    Matrix matrix;               // from the world to the output's plane
    double scale = 1;            // of that
    bool isFromAbove = true;     // whether it shows the world's plane
    std::vector<Point2> outline; // in the output's plane
    std::set<NameId> frozen;     // layers that it does not show
    Handle clip = 0;             // the entity that is its outline; 0: a rectangle is
    std::uint64_t line = 0;
};

// Collects the windows of a layout. All must outlive it.
class WindowReader final : public EntitySink {
public:
    // More are left out, with a report: all entities of the model are looked at for each.
    static constexpr std::size_t kMostWindows = 256;

    WindowReader(const Drawing& drawing, const Layout& layout, const Sheet& sheet, Report& report);

    void Take(const Entity& entity) override;

    // In file order.
    std::vector<Window>& Windows() { return m_windows; }

private:
    bool IsSheetItself(const Viewport& viewport);
    void Add(const Viewport& viewport);
    std::set<NameId> FrozenBy(const Viewport& viewport) const;

    const Sheet& m_sheet;
    const LayoutMembers m_members;
    Report& m_report;
    std::map<Handle, NameId> m_layers;
    std::vector<Window> m_windows;
    bool m_hasMetAny = false;
};

// Gives windows that are cut along entities their outlines.
class OutlineReader final : public EntitySink {
public:
    // All must outlive it. limits: for all outlines together.
    OutlineReader(const Drawing& drawing, const Sheet& sheet, const ConvertSettings& limits,
                  std::vector<Window>& windows);

    // Whether there is anything to be read.
    bool IsNeeded() const { return !m_wanted.empty(); }
    void Take(const Entity& entity) override;
    // Reports outlines that were not found, where the windows' rectangles are in their place, and those that
    // boxes replace.
    void Finish(Report& report) const;

private:
    std::vector<Point2> OutlineOf(const Entity& entity, double side);

    const Drawing& m_drawing;
    const Sheet& m_sheet;
    ConvertSettings m_limits; // of what is still to come
    std::multimap<Handle, Window*> m_wanted;
    std::vector<std::uint64_t> m_replaced; // the lines of windows that are boxes
};

} // namespace prepare
