#include "prepare/plain/TwoOutputs.h"

namespace prepare {

TwoOutputs::TwoOutputs(PlainOutput& first, PlainOutput& second)
    : m_first(first), m_second(&second), m_model(first.Model(), &second.Model())
{
}

void TwoOutputs::LeaveSecond()
{
    m_second = nullptr;
    m_model.LeaveSecond();
    for (auto& [number, block] : m_blocks)
        block.LeaveSecond();
}

void TwoOutputs::UsePlace(std::uint64_t place)
{
    m_first.UsePlace(place);
    if (m_second != nullptr)
        m_second->UsePlace(place);
}

void TwoOutputs::UsePlaceInBlock(std::size_t number, std::uint64_t place)
{
    m_first.UsePlaceInBlock(number, place);
    if (m_second != nullptr)
        m_second->UsePlaceInBlock(number, place);
}

std::size_t TwoOutputs::NewBlock(std::string_view name)
{
    const std::size_t number = m_first.NewBlock(name);
    PlainSink* const second = m_second == nullptr ? nullptr : &m_second->Block(m_second->NewBlock(name));
    m_blocks.try_emplace(number, m_first.Block(number), second);
    return number;
}

void TwoOutputs::EndBlock(std::size_t number)
{
    m_blocks.erase(number);
    m_first.EndBlock(number);
    if (m_second != nullptr)
        m_second->EndBlock(number);
}

void TwoOutputs::Sink::Line(const Style& style, Point2 start, Point2 end)
{
    ToBoth([&](PlainSink& sink) { sink.Line(style, start, end); });
}

void TwoOutputs::Sink::Circle(const Style& style, Point2 centre, double radius)
{
    ToBoth([&](PlainSink& sink) { sink.Circle(style, centre, radius); });
}

void TwoOutputs::Sink::Arc(const Style& style, Point2 centre, double radius, double start, double end)
{
    ToBoth([&](PlainSink& sink) { sink.Arc(style, centre, radius, start, end); });
}

void TwoOutputs::Sink::Ellipse(const Style& style, Point2 centre, Point2 majorAxis, double ratio,
                               double start, double end)
{
    ToBoth([&](PlainSink& sink) { sink.Ellipse(style, centre, majorAxis, ratio, start, end); });
}

void TwoOutputs::Sink::Polyline(const Style& style, std::span<const PlainVertex> vertices, bool isClosed)
{
    ToBoth([&](PlainSink& sink) { sink.Polyline(style, vertices, isClosed); });
}

void TwoOutputs::Sink::Text(const Style& style, const PlainText& text)
{
    ToBoth([&](PlainSink& sink) { sink.Text(style, text); });
}

void TwoOutputs::Sink::LineOfText(Point2 point, double spread, std::span<const PlainRun> runs)
{
    ToBoth([&](PlainSink& sink) { sink.LineOfText(point, spread, runs); });
}

void TwoOutputs::Sink::Fill(const Style& style, std::span<const std::vector<Point2>> rings)
{
    ToBoth([&](PlainSink& sink) { sink.Fill(style, rings); });
}

void TwoOutputs::Sink::Mask(std::span<const std::vector<Point2>> rings)
{
    ToBoth([&](PlainSink& sink) { sink.Mask(rings); });
}

void TwoOutputs::Sink::Insert(std::size_t block, Point2 point, double rotation, bool isMirrored)
{
    ToBoth([&](PlainSink& sink) { sink.Insert(block, point, rotation, isMirrored); });
}

} // namespace prepare
