// What becomes of the entities of a drawing when it is prepared.
#pragma once

#include "cli/contents/DrawingInfo.h"
#include "cli/contents/Share.h"
#include "cli/files/Source.h"
#include "cli/options/Options.h"
#include "prepare/report/Report.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace plexorn {

// Of the entities of one type.
struct TypeBecoming {
    std::string into; // "3 polylines, 1 line"; empty when they stay what they are, or are not shown
    std::map<std::string, std::uint64_t> notShown; // why, and how many
    std::map<std::string, std::uint64_t> changed;  // what is shown differently, and of how many

    // As a part of a sentence for people.
    std::string Text() const;
};

struct Becoming {
    Share share;
    Named<TypeInfo> held;                      // the entities of each type in the file
    std::map<std::string, TypeBecoming> types; // by name; without those that stay what they are
    std::vector<std::string> repairs;          // what was wrong with the file, and the first line of that
    std::vector<prepare::LayoutSize> sheets;   // of the paper space
    std::string codePage;                      // by which its names are read
};

// Prepares source's drawing and keeps only what became of it. Throws std::bad_alloc, and std::system_error
// when the drawing cannot be read to its end.
Becoming BecomingOf(Source& source, const Options& options);

} // namespace plexorn
