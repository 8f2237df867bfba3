#include "support/WrittenDrawing.h"

#include <algorithm>

namespace prepare {

WrittenDrawing::WrittenDrawing(Profile profile)
{
    settings.profile = profile;
    settings.fill = FillForm::Named;
    settings.extents.Add({-50, -50});
    settings.extents.Add({50, 50});
    settings.thinnest = 0.25;
    settings.thinnestWeight = 25;
    settings.tolerance = 0.0125;
}

DrawingWriter& WrittenDrawing::Writer()
{
    if (m_writer == nullptr)
        m_writer = MakeWriter(drawing, settings, report);
    return *m_writer;
}

std::string WrittenDrawing::Text()
{
    std::string text;
    Writer().Finish([&](std::string_view bytes) {
        text += bytes;
        return true;
    });
    return text;
}

std::string WrittenDrawing::Entities()
{
    const std::string text = Text();
    const std::string begin = "2\nENTITIES\n";
    const std::size_t from = text.find(begin) + begin.size();
    std::string entities = text.substr(from, text.find("\n0\nENDSEC\n", from - 1) - from);
    std::replace(entities.begin(), entities.end(), '\n', ' ');
    return entities;
}

const LineType* WrittenDrawing::Dashed(std::vector<double> dashes, std::string_view name)
{
    LineType& lineType = drawing.lineTypes[drawing.names.Of(name)];
    lineType.name = drawing.names.Of(name);
    lineType.dashes = std::move(dashes);
    return &lineType;
}

Style StyleOf(std::int32_t colour, std::int32_t weight)
{
    Style style;
    style.colour.index = colour;
    style.weight = weight;
    return style;
}

} // namespace prepare
