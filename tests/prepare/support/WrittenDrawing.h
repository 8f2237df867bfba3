// A drawing of plain entities as a profile writes it.
#pragma once

#include "prepare/write/DrawingWriter.h"

#include <string>

namespace prepare {

// Fill it through the sinks, then take the text, once.
class WrittenDrawing {
public:
    // Drawing units are millimetres, 100 x 100 around the origin; the thinnest stroke is 0.25 wide. Areas are
    // written without strokes.
    explicit WrittenDrawing(Profile profile = Profile::Module);

    Drawing drawing;
    Report report;
    WriteSettings settings; // to be changed before the first entity

    DrawingWriter& Writer();
    PlainSink& Model() { return Writer().Model(); }
    std::string Text();
    // The text between the lines "ENTITIES" and "ENDSEC", its line feeds as blanks: "0 LINE 62 7 ...".
    std::string Entities();

    // A line type of that pattern, the drawing's own.
    const LineType* Dashed(std::vector<double> dashes, std::string_view name = "DASHED");

private:
    std::unique_ptr<DrawingWriter> m_writer;
};

// A style of that colour and weight.
Style StyleOf(std::int32_t colour, std::int32_t weight = 25);

} // namespace prepare
