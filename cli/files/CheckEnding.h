// Which names a picture and a prepared drawing may have.
#pragma once

#include "cli/options/Options.h"

#include <string>

namespace plexorn {

// Throws UsageError when the name of what a task makes ends as that of something else: a picture's like a
// drawing's, or either like a file of another form.
void CheckEnding(const std::string& output, Task task);

} // namespace plexorn
