// The closing lines: what became of drawings that were drawn.
#pragma once

#include "cli/contents/Share.h"
#include "svghost/SvgHost.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace plexorn {

struct Outcome {
    std::string output;
    SvgHostStatistics statistics{};
    std::chrono::milliseconds time{};
    double width = 0; // in millimetres; 0: the size is in pixels
    double height = 0;
    double scale = 1;                // the N of the size's scale 1:N
    double filled = 1;               // the share of the whole drawing's longer side that most of it takes
    bool isCropped = false;          // whether the picture leaves out what lies far from most of the drawing
    std::string_view unit;           // where the size comes from
    std::string reason;              // of the size
    std::uint64_t unmarkedEntry = 0; // the line of the first entry that needs a marker and has none
    bool isEnded = true;             // whether the file ends with its EOF
    std::uint64_t otherTexts = 0;    // pieces of text that are drawn with U+FFFD, as they are not UTF-8
    std::uint64_t oddLines = 0;      // lines that are not group codes where these belong
    Share share;                     // of the drawing, as far as it could be read
    bool isBlank = false;            // whether nothing of it is visible, though the drawing holds entities
    std::string hole;                // why parts of the picture are missing; empty: it is complete
    bool hasReplacedOther = false;   // whether the picture replaced a file without plexorn's mark
    // The entities that are not drawn and that no message mentions.
    std::map<std::string, std::uint64_t> skipped;
};

// What became of a drawing that was prepared.
struct PreparedOutcome {
    std::string output;
    std::uint64_t bytes = 0; // of the prepared drawing
    Share share;
    std::chrono::milliseconds time{};
    bool hasReplacedOther = false; // whether it replaced a file without plexorn's mark
};

// Whether the picture shows all of the drawing as the drawing states it. Messages do not count.
bool IsShownAsStated(const Outcome& outcome);

// What became of several drawings, how many of each.
struct Totals {
    std::string_view doneWord; // what was done to them: "drawn" or "prepared"
    std::size_t done = 0;
    std::size_t blank = 0; // of those that were drawn
    std::size_t skipped = 0;
    std::size_t failed = 0;
};

// The closing lines: of a drawing (after its name), and of several.
std::string OutcomeText(const Outcome& outcome, std::size_t messages);
std::string OutcomeText(const PreparedOutcome& outcome, std::size_t messages);
std::string TotalText(const Totals& totals, std::size_t messages, std::chrono::milliseconds time);

// The same for programs, as one object without its line end.
std::string OutcomeJson(const std::string& file, const Outcome& outcome, std::size_t messages);
std::string OutcomeJson(const std::string& file, const PreparedOutcome& outcome, std::size_t messages);
std::string TotalJson(const Totals& totals, std::size_t messages, std::chrono::milliseconds time);

} // namespace plexorn
