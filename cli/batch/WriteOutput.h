// Writing what is made of a drawing.
#pragma once

#include "cli/files/Jobs.h"
#include "cli/files/OutputFile.h"
#include "cli/options/Options.h"

#include <functional>
#include <string>

namespace plexorn {

// Lets write fill job's output, in its folder, which is made if it may be; the output is written whole or,
// when write gives false, not at all. Returns why the output is not written, as the end of a sentence;
// otherwise an empty text.
std::string WriteOutput(const Job& job, const Options& options,
                        const std::function<bool(OutputFile& file)>& write);

} // namespace plexorn
