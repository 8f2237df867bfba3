#include "prepare/Layouts.h"

#include "base/Letters.h"
#include "prepare/drawing/CountContents.h"
#include "prepare/drawing/Encoding.h"
#include "prepare/drawing/ReadDrawing.h"
#include "prepare/plain/Sheet.h"
#include "prepare/report/WaitingFindings.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace prepare {

namespace {

// The name of a sheet that a drawing has, but does not mention.
constexpr const char* kUnnamedLayout = "Layout1";

LayoutSize SizeOf(const Layout& layout)
{
    const Sheet sheet = SheetOf(layout);
    return {layout.name, sheet.width, sheet.height};
}

} // namespace

bool IsModelName(std::string_view name)
{
    return AreSameLetters(name, "Model");
}

std::vector<LayoutSize> SizesOfLayouts(const Drawing& drawing, bool hasPaperSpace)
{
    std::vector<LayoutSize> sizes;
    std::transform(drawing.layouts.begin(), drawing.layouts.end(), std::back_inserter(sizes), SizeOf);
    if (sizes.empty() && hasPaperSpace)
        sizes.push_back({kUnnamedLayout, 0, 0});
    return sizes;
}

bool ReadLayouts(ReopenableSource& source, std::string_view encoding, Drawing& drawing, Report& report)
{
    bool hasFailed = false;
    WaitingFindings found;
    EntityCounter entities;
    const auto readEntities = [&] {
        ReadEntities(source.Rewound(), encoding, drawing, entities, hasFailed);
        hasFailed = hasFailed && !source.IsTakenInPart();
    };
    ReadIndex(source.Rewound(), encoding, drawing, nullptr, found.Taken(), hasFailed);
    hasFailed = hasFailed && !source.IsTakenInPart();
    const bool mustGuess = !hasFailed && NamesNoCodePage(drawing, encoding);
    if (mustGuess) {
        readEntities();
        GuessCodePage(drawing);
    }
    if (!hasFailed && MustReadAgain(drawing, encoding)) {
        NoteGuess(drawing, report);
        Header header = std::move(drawing.header);
        drawing = Drawing();
        drawing.header = std::move(header);
        return ReadLayouts(source, encoding, drawing, report);
    }
    found.GiveTo(report);
    if (hasFailed || !drawing.layouts.empty())
        return !hasFailed;
    if (!mustGuess)
        readEntities();
    if (entities.contents.inPaperSpace > 0) {
        Layout& layout = drawing.layouts.emplace_back();
        layout.name = kUnnamedLayout;
        layout.isActive = true;
    }
    return !hasFailed;
}

PrepareOutcome ListLayouts(ReopenableSource& source, std::string_view encoding,
                           std::vector<LayoutSize>& layouts)
{
    if (!encoding.empty() && !IsEncoding(encoding))
        return PrepareOutcome::BadOptions;
    Drawing drawing;
    Report unsaid;
    if (!ReadLayouts(source, encoding, drawing, unsaid))
        return PrepareOutcome::ReadFailed;
    layouts = SizesOfLayouts(drawing, false);
    return layouts.empty() && !drawing.hasSections ? PrepareOutcome::NoDrawing : PrepareOutcome::Done;
}

} // namespace prepare
