// Turns what a sheet shows into plain entities: its own, and the model's in its windows.
#pragma once

#include "prepare/plain/Converter.h"
#include "prepare/plain/Viewports.h"

#include <deque>

namespace prepare {

struct SheetSettings {
    // Of all that the sheet shows. Empty while that is measured: then windows are not cut, and what they show
    // does not count for the model's measure.
    Box extents;
    ConvertSettings placing; // of what is measured alone
};

// Takes all entities of a drawing. Each window becomes a block of the output, inserted before the sheet's own
// entities, in which the model's entities keep their order.
class SheetConverter final : public EntitySink {
public:
    // All must outlive it. converter is one for the same output; the windows share its room.
    SheetConverter(const Drawing& drawing, const Options& options, const Layout& layout, const Sheet& sheet,
                   const std::vector<Window>& windows, const SheetSettings& settings, Converter& converter,
                   PlainOutput& output, Report& report);

    void Take(const Entity& entity) override;

    // The blocks of the output that the windows are.
    std::vector<std::size_t> Blocks() const;

private:
    // A window as it is filled.
    struct Pane {
        Pane(const Drawing& drawing, const Options& options, const Window& window)
            : view(drawing, options, &window.frozen), region(window.outline), line(window.line)
        {
        }

        View view;
        ClipRegion region;
        std::optional<ClipSink> cut; // none while the sheet is measured
        std::size_t block = 0;
        Box seen; // of the world's plane; empty where it is seen from another side
        std::uint64_t line;
        bool isFull = false; // it shows no more: there was no room
    };

    void AddPane(const Options& options, const Window& window);
    std::size_t NumberOf(const Window& window) const;
    double PointSizeAt(double scale) const;
    Box BoxOf(const Entity& entity);
    void TakeOfModel(const Entity& entity);
    void ShowIn(Pane& pane, const Entity& entity);

    const Drawing& m_drawing;
    const LayoutMembers m_members;
    const std::vector<Window>& m_windows;
    const SheetSettings m_settings;
    Converter& m_converter;
    PlainOutput& m_output;
    Report& m_report;
    View m_paper;
    std::deque<Pane> m_panes;
    // Where entities of the model are, so that they are not tried in windows that cannot show them.
    Measure m_places;
    Report m_unsaid;
    Converter m_placing;
};

} // namespace prepare
