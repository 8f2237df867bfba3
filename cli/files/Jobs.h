// Which picture is drawn from which drawing.
#pragma once

#include "cli/files/Inputs.h"
#include "cli/options/ExitCode.h"
#include "cli/options/Options.h"

#include <string>
#include <vector>

namespace plexorn {

// One drawing to be drawn; when it cannot be, the reason is not empty.
struct Job {
    std::string input;
    std::string output;
    // Whether the folders of the picture are made when they are missing.
    bool makesFolders = false;
    std::string reason{};
    ExitCode code = ExitCode::File;
    std::string layout{}; // in place of the one that the options name, if it is not empty
};

// The drawings with the names of their pictures. A drawing that is named twice occurs once; of different ones
// that would be drawn to the same picture, and of those whose picture would replace a drawing, only the first
// is drawn. Throws UsageError when the output that is asked for cannot hold them, or is named like a drawing.
std::vector<Job> PlanJobs(const Inputs& inputs, const Options& options);

} // namespace plexorn
