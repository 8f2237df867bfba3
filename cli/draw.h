// Drawing one drawing.
#ifndef PLEXORN_CLI_DRAW_H
#define PLEXORN_CLI_DRAW_H

#include "inputs.h"
#include "report.h"

namespace plexorn {

// Draws job's drawing to its picture and reports how it went. Throws std::bad_alloc when memory is short.
void DrawJob(const Job& job, const Options& options, CReport& report);

// The name under which a drawing is reported.
std::string ShownName(const std::string& input);

} // namespace plexorn

#endif
