#include "support/DimensionTrace.h"

DimensionTrace::DimensionTrace(int firstNode, std::string_view outer) : m_next(firstNode), m_outer(outer) {}

DimensionTrace& DimensionTrace::Width(std::string_view width)
{
    m_width = width;
    return *this;
}

DimensionTrace& DimensionTrace::Size(std::string_view size)
{
    m_size = size;
    return *this;
}

DimensionTrace& DimensionTrace::Add(std::string_view name, std::string_view value)
{
    m_trace += Attribute(m_node, name, value);
    return *this;
}

DimensionTrace& DimensionTrace::Create(std::string_view operation, std::string_view arguments)
{
    m_node = 'n' + std::to_string(m_next++);
    m_trace.append(operation)
        .append("(ctx, \"\"")
        .append(arguments)
        .append(") = ")
        .append(m_node)
        .append("\n");
    return *this;
}

DimensionTrace& DimensionTrace::Begin()
{
    m_trace += "qlmGetCurrentSvgNode(ctx) = " + m_outer + "\n";
    Create("qlmCreateG", "");
    m_trace += "qlmSetCurrentSvgNode(ctx, " + m_node + ")\n";
    return *this;
}

DimensionTrace& DimensionTrace::End()
{
    m_trace += "qlmSetCurrentSvgNode(ctx, " + m_outer + ")\n";
    return *this;
}

DimensionTrace& DimensionTrace::Line(std::string_view ends)
{
    return Create("qlmCreateLine", ", " + std::string(ends) + ", 0, 0").Add("stroke-width", m_width);
}

DimensionTrace& DimensionTrace::ColoredLine(std::string_view ends, std::string_view color)
{
    return Line(ends).Add("stroke", color);
}

DimensionTrace& DimensionTrace::ArrowsLine(std::string_view ends)
{
    return Line(ends)
        .Add("pg-begin-arrow-type", "stealth arrow")
        .Add("pg-end-arrow-type", "stealth arrow")
        .Add("pg-begin-arrow-size", "1")
        .Add("pg-end-arrow-size", "1");
}

DimensionTrace& DimensionTrace::EndArrowLine(std::string_view ends)
{
    return Line(ends).Add("pg-end-arrow-type", "stealth arrow").Add("pg-end-arrow-size", "1");
}

DimensionTrace& DimensionTrace::Path(std::string_view data)
{
    return Create("qlmCreatePath", ", \"" + std::string(data) + "\", 0, 0").Add("stroke-width", m_width);
}

DimensionTrace& DimensionTrace::Circle(std::string_view center, std::string_view color)
{
    Create("qlmCreateCircle", ", 0.5, " + std::string(center) + ", 0, 0").Add("stroke-width", m_width);
    return color.empty() ? *this : Add("stroke", color);
}

DimensionTrace& DimensionTrace::Text(std::string_view text, std::string_view position,
                                     std::string_view rotation)
{
    return Create("qlmCreateText", ", 0, 0, 0, 0, \"" + std::string(text) + "\", " + std::string(position))
        .Add("font-size", m_size)
        .Add("text-anchor", "middle")
        .Add("stroke", "#00ff00")
        .Add("rotate", rotation);
}

DimensionTrace& DimensionTrace::Duplicated()
{
    m_trace += "qlmSetLastError(0, \"DXF\", 3, \"AcDbDimension data duplicated.\", false, 0)\n";
    return *this;
}
