// Writes a plain drawing as an R2000 ASCII drawing.
#pragma once

#include "prepare/Options.h"
#include "prepare/plain/Placement.h"
#include "prepare/plain/Plain.h"
#include "prepare/report/Report.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

namespace prepare {

// Takes bytes, in order; false stops the writing.
using ByteFunction = std::function<bool(std::string_view bytes)>;

struct WriteSettings {
    Profile profile = Profile::Module;
    FillForm fill = FillForm::Strokes;
    bool mayWrap = true;
    bool isReadAtOnce = false;    // longer, but read faster
    bool marksLayers = false;     // for a host that knows the marks
    Box extents;                  // of all that will be drawn, in drawing units
    bool isInMillimetres = false; // whatever units the drawing says it has
    double unitsPerMm = 1;        // the drawing units of a millimetre on the sheet that the picture is
    double thinnest = 0;          // the least width of a stroke, in drawing units
    double tolerance = 0;         // of curves that the profile has to flatten
    std::uint64_t sparePointsOfCurves = UINT64_MAX; // of those, as Fineness has them
    std::int32_t thinnestWeight = 0;                // of all strokes, hundredths of a millimetre
    double smallestText = 0; // the least height of a text, in drawing units; 0: no texts
};

// The entities are kept, as text, until Finish: blocks and line types are known only then.
class DrawingWriter : public PlainOutput {
public:
    // What is known of the drawing once it has been measured. To be called before Finish at the latest.
    virtual void UseSettings(const WriteSettings& settings) = 0;
    // Writes the drawing; false when write was stopped. To be called once.
    virtual bool Finish(const ByteFunction& write) = 0;
};

// The writer of the settings' profile. drawing and report must outlive it.
std::unique_ptr<DrawingWriter> MakeWriter(const Drawing& drawing, const WriteSettings& settings,
                                          Report& report);

} // namespace prepare
