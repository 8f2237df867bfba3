#include "cli/prepare/PrepareOptionsFor.h"

#include "cli/options/ToleranceOf.h"

namespace plexorn {

namespace {

// The reference host knows the names of areas.
prepare::FillForm FillFormFor(const Options& options)
{
    if (options.fill == "outline")
        return prepare::FillForm::Outlines;
    return options.task == Task::Draw ? prepare::FillForm::Named : prepare::FillForm::Strokes;
}

} // namespace

prepare::Options PrepareOptionsFor(const Options& options)
{
    prepare::Options wanted;
    wanted.profile = options.readBy == "standard" ? prepare::Profile::Standard : prepare::Profile::Module;
    wanted.fill = FillFormFor(options);
    wanted.tolerance = ToleranceOf(options.tolerance).value_or(0);
    wanted.mayWrap = !options.forbidsWrap;
    wanted.showsAllLayers = options.layers == "all";
    wanted.isForPaper = options.isOnPaper;
    wanted.onlyLayers = options.onlyLayers;
    wanted.withoutLayers = options.withoutLayers;
    wanted.encoding = options.encoding;
    wanted.takesNothing = true; // sources know that it is a DXF
    wanted.redrawsDimensions = options.redrawsDimensions;
    wanted.isReadAtOnce = options.task == Task::Draw;
    wanted.marksLayers = options.task == Task::Draw; // the reference host knows the marks
    wanted.layout = options.layout;
    return wanted;
}

} // namespace plexorn
