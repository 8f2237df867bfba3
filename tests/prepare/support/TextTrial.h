// Draws one text or note and gives what came out as lines of text.
#pragma once

#include "prepare/plain/DrawAnnotations.h"
#include "prepare/plain/DrawAnyText.h"
#include "support/RecordingSink.h"

#include <string>
#include <utility>
#include <vector>

namespace prepare {

struct TextTrial {
    Drawing drawing;
    Matrix matrix;
    Report report;

    std::vector<std::string> Draw(const Entity& entity)
    {
        RecordingSink sink;
        Budget budget(0.01);
        const DrawingScale scale(0.01, {}, 0);
        const Placement placement{drawing, matrix, {}, scale, sink, report, budget};
        const PartStyler styleOf = [](const StyleOfPart& part) {
            Style style;
            style.colour.isTrue = part.trueColour != kNoTrueColour;
            style.colour.rgb = style.colour.isTrue ? static_cast<std::uint32_t>(part.trueColour) : 0;
            style.colour.index = part.colour;
            return style;
        };
        report.BeginEntity();
        if (!DrawAnyText(entity, placement, styleOf) && !DrawAnnotations(entity, placement, styleOf))
            sink.lines.push_back("not a text");
        return std::move(sink.lines);
    }

    // A text style of that name, to be filled.
    TextStyle& StyleNamed(const char* name)
    {
        const NameId id = drawing.names.Of(name);
        TextStyle& style = drawing.textStyles[id];
        style.name = id;
        return style;
    }

    // "NotShown TEXT: seen edge-on (1 from line 7)"
    std::vector<std::string> Findings() const
    {
        static constexpr const char* kWords[] = {"Rewritten", "NotShown", "Changed", "Repaired", "Cut"};
        std::vector<std::string> findings;
        for (const auto& [key, count] : report.Entries())
            findings.push_back(std::string(kWords[static_cast<int>(key.finding)]) + " " + key.subject + ": " +
                               key.detail + " (" + std::to_string(count.count) + " from line " +
                               std::to_string(count.firstLine) + ")");
        return findings;
    }
};

using Lines = std::vector<std::string>;

} // namespace prepare
