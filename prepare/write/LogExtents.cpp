#include "prepare/write/LogExtents.h"

#include "base/Pi.h"
#include "prepare/plain/Measure.h"

#include <vector>

namespace prepare {

namespace {

class LogMeasure;

// Passes a log to the measure of the model or of a block.
class MeasuringVisitor final : public LogVisitor {
public:
    MeasuringVisitor(LogMeasure& owner, PlainSink& sink) : m_owner(owner), m_sink(sink) {}

    void Line(StyleId, Point2 start, Point2 end) override { m_sink.Line(m_style, start, end); }
    void Circle(StyleId, Point2 centre, double radius) override { m_sink.Circle(m_style, centre, radius); }
    void Arc(StyleId, Point2 centre, double radius, double start, double end) override
    {
        m_sink.Arc(m_style, centre, radius, start, end);
    }
    void Ellipse(StyleId, Point2 centre, Point2 majorAxis, double ratio, double start, double end) override
    {
        constexpr double kAlmost = 1e-9;
        const bool isWhole = end - start > kTurn - kAlmost; // then it is written from 0 on
        m_sink.Ellipse(m_style, centre, majorAxis, ratio, isWhole ? 0 : start, isWhole ? kTurn : end);
    }
    void Polyline(StyleId, std::span<const PlainVertex> vertices, bool isClosed) override
    {
        m_sink.Polyline(m_style, vertices, isClosed);
    }
    void Fill(StyleId, std::span<const std::vector<Point2>> rings) override { m_sink.Fill(m_style, rings); }
    void Text(StyleId, const LoggedText& text) override
    {
        m_sink.Text(m_style, {std::string(text.text), text.point, text.along, text.up, text.anchor, {}});
    }
    void Insert(std::size_t block, Point2 point, double rotation, bool isMirrored) override;

private:
    LogMeasure& m_owner;
    PlainSink& m_sink;
    const Style m_style;
};

// Measures each block once, before the first that inserts it. Blocks are never nested deeper than the
// converter lets them be, and so is the recursion.
class LogMeasure {
public:
    explicit LogMeasure(const std::deque<KeptBlock>& blocks) : m_blocks(blocks), m_isMeasured(blocks.size())
    {
        for (const KeptBlock& block : blocks)
            m_measure.NewBlock(block.name);
    }

    Box Of(const PlainLog& model)
    {
        Take(model, m_measure.Model());
        return m_measure.OfModel().hull.Bounds();
    }
    void Know(std::size_t block)
    {
        if (m_isMeasured[block])
            return;
        m_isMeasured[block] = true;
        Take(m_blocks[block].log, m_measure.Block(block));
        m_measure.EndBlock(block);
    }

private:
    void Take(const PlainLog& log, PlainSink& sink)
    {
        MeasuringVisitor visitor(*this, sink);
        log.Replay(visitor);
    }

    const std::deque<KeptBlock>& m_blocks;
    std::vector<bool> m_isMeasured;
    Measure m_measure;
};

void MeasuringVisitor::Insert(std::size_t block, Point2 point, double rotation, bool isMirrored)
{
    m_owner.Know(block);
    m_sink.Insert(block, point, rotation, isMirrored);
}

} // namespace

Box ExtentsOf(const PlainLog& model, const std::deque<KeptBlock>& blocks)
{
    return LogMeasure(blocks).Of(model);
}

} // namespace prepare
