// What both profiles start from: all plain entities, as they came.
#pragma once

#include "prepare/plain/Fineness.h"
#include "prepare/write/DrawingWriter.h"
#include "prepare/write/PlainLog.h"
#include "prepare/write/StyleTable.h"

#include <deque>
#include <functional>
#include <set>
#include <string>
#include <string_view>

namespace prepare {

struct KeptBlock {
    KeptBlock(std::string_view itsName, LogRoom& room) : name(itsName), log(room) {}

    std::string_view name; // as it was asked for
    PlainLog log;
};

// Keeps the entities of the model and of each block in logs. drawing and report must outlive it.
class KeptDrawing : public DrawingWriter {
public:
    KeptDrawing(const Drawing& drawing, const WriteSettings& settings, Report& report)
        : m_drawing(drawing), m_settings(settings), m_report(report),
          m_logs(settings.fill != FillForm::Outlines)
    {
    }

    void UseSettings(const WriteSettings& settings) override { m_settings = settings; }
    PlainSink& Model() override { return m_model; }
    void UsePlace(std::uint64_t place) override { m_model.UsePlace(place); }
    void UsePlaceInBlock(std::size_t number, std::uint64_t place) override
    {
        m_blocks[number].log.UsePlace(place);
    }
    std::size_t NewBlock(std::string_view name) override
    {
        auto known = m_names.find(name);
        if (known == m_names.end())
            known = m_names.emplace(name).first;
        m_blocks.emplace_back(*known, m_logs);
        return m_blocks.size() - 1;
    }
    PlainSink& Block(std::size_t number) override { return m_blocks[number].log; }

protected:
    // $INSUNITS or $MEASUREMENT of what is written; below 0: it says none.
    std::int32_t UnitsVariable(std::string_view name) const
    {
        constexpr std::int32_t kMillimetres = 4, kMetric = 1;
        if (m_settings.isInMillimetres)
            return name == "$INSUNITS" ? kMillimetres : kMetric;
        return m_drawing.header.Integer(name, -1);
    }

    void ReportCoarse(const Fineness& curves)
    {
        if (curves.CoarseParts() > 0)
            m_report.Add(Finding::Changed, "drawing", "arcs of its polylines are coarser: there are too many",
                         0, curves.CoarseParts());
    }

    const Drawing& m_drawing;
    WriteSettings m_settings;
    Report& m_report;
    LogRoom m_logs;
    PlainLog m_model{m_logs};
    std::set<std::string, std::less<>> m_names; // of the blocks
    std::deque<KeptBlock> m_blocks;
};

} // namespace prepare
