#include "cli/prepare/PrepareOptionsFor.h"

#include "cli/options/ToleranceOf.h"

namespace plexorn {

prepare::Options PrepareOptionsFor(const Options& options)
{
    prepare::Options wanted;
    wanted.profile = options.readBy == "standard" ? prepare::Profile::Standard : prepare::Profile::Module;
    wanted.tolerance = ToleranceOf(options.tolerance).value_or(0);
    wanted.mayWrap = !options.forbidsWrap;
    wanted.showsAllLayers = options.layers == "all";
    wanted.isForPaper = options.isOnPaper;
    wanted.onlyLayers = options.onlyLayers;
    wanted.withoutLayers = options.withoutLayers;
    wanted.encoding = options.encoding;
    wanted.redrawsDimensions = options.redrawsDimensions;
    wanted.isReadAtOnce = options.task == Task::Draw;
    wanted.marksLayers = options.task == Task::Draw; // the reference host knows the marks
    wanted.layout = options.layout;
    return wanted;
}

} // namespace plexorn
