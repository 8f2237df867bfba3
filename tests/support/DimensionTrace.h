// The trace of a dimension, written out for a test to compare with.
#pragma once

#include "support/TraceLines.h"

#include <ostream>
#include <string>
#include <string_view>

// Builds a trace call by call and numbers the nodes. Coordinates are given as the trace writes them:
//     DimensionTrace().Begin().EndArrowLine("0, -0, 3, -4").Text("5", "1, 1", "45").End()
class DimensionTrace {
public:
    // firstNode is the number of the first node; outer is the current node that is kept meanwhile.
    explicit DimensionTrace(int firstNode = 1, std::string_view outer = "0");

    // What "stroke-width" is, and the size of texts.
    DimensionTrace& Width(std::string_view width);
    DimensionTrace& Size(std::string_view size);

    DimensionTrace& Begin();
    DimensionTrace& End();
    DimensionTrace& Line(std::string_view ends);
    DimensionTrace& ColoredLine(std::string_view ends, std::string_view color);
    DimensionTrace& ArrowsLine(std::string_view ends);
    DimensionTrace& EndArrowLine(std::string_view ends);
    DimensionTrace& Path(std::string_view data);
    DimensionTrace& Circle(std::string_view center, std::string_view color = "");
    DimensionTrace& Text(std::string_view text, std::string_view position, std::string_view rotation);
    DimensionTrace& Duplicated();

    operator std::string() const { return m_trace; }

private:
    DimensionTrace& Add(std::string_view name, std::string_view value);
    DimensionTrace& Create(std::string_view operation, std::string_view arguments);

    std::string m_trace;
    int m_next;
    std::string m_node;
    std::string m_outer;
    std::string m_width = "0.150000";
    std::string m_size = "2.00";
};

inline bool operator==(const std::string& trace, const DimensionTrace& expected)
{
    return trace == std::string(expected);
}

// What a failing test prints.
inline std::ostream& operator<<(std::ostream& out, const DimensionTrace& expected)
{
    return out << std::string(expected);
}
