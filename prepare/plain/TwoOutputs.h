// Gives plain entities to two outputs.
#pragma once

#include "prepare/plain/Plain.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>

namespace prepare {

// Both must outlive this and number their blocks alike.
class TwoOutputs final : public PlainOutput {
public:
    TwoOutputs(PlainOutput& first, PlainOutput& second);

    // From now on the first one gets everything alone; the second one is used no more.
    void LeaveSecond();

    PlainSink& Model() override { return m_model; }
    void UsePlace(std::uint64_t place) override;
    void UsePlaceInBlock(std::size_t number, std::uint64_t place) override;
    std::size_t NewBlock(std::string_view name) override;
    PlainSink& Block(std::size_t number) override { return m_blocks.at(number); }
    void EndBlock(std::size_t number) override;

private:
    class Sink final : public PlainSink {
    public:
        Sink(PlainSink& first, PlainSink* second) : m_first(first), m_second(second) {}
        void LeaveSecond() { m_second = nullptr; }

        void Line(const Style& style, Point2 start, Point2 end) override;
        void Circle(const Style& style, Point2 centre, double radius) override;
        void Arc(const Style& style, Point2 centre, double radius, double start, double end) override;
        void Ellipse(const Style& style, Point2 centre, Point2 majorAxis, double ratio, double start,
                     double end) override;
        void Polyline(const Style& style, std::span<const PlainVertex> vertices, bool isClosed) override;
        void Text(const Style& style, const PlainText& text) override;
        void LineOfText(Point2 point, double spread, std::span<const PlainRun> runs) override;
        void Fill(const Style& style, std::span<const std::vector<Point2>> rings) override;
        void Mask(std::span<const std::vector<Point2>> rings) override;
        void Insert(std::size_t block, Point2 point, double rotation, bool isMirrored) override;

    private:
        template <class Give>
        void ToBoth(const Give& give)
        {
            give(m_first);
            if (m_second != nullptr)
                give(*m_second);
        }

        PlainSink& m_first;
        PlainSink* m_second;
    };

    PlainOutput& m_first;
    PlainOutput* m_second;
    Sink m_model;
    std::map<std::size_t, Sink> m_blocks; // those that have not ended
};

} // namespace prepare
