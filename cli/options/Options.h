// What the command line asks for.
#pragma once

#include <cstddef>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace plexorn {

// The name of the standard input or output.
inline constexpr const char* kStandardStream = "-";

// A command line that cannot be followed.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// What the text of a scale 1:N begins with.
inline constexpr std::string_view kScaleStart = "1:";

// In place of a layout's name: all that the drawing has.
inline constexpr std::string_view kAllLayouts = "all";

// The command within the command.
enum class Task { Draw, Info, Prepare };

// What is done to a drawing: "drawn" or "prepared".
std::string_view DoneWord(Task task);
// The words before the reason why it is not: "is not drawn: ".
std::string NotDone(Task task);

// Paths are UTF-8 (on POSIX systems: the bytes as given).
struct Options {
    Task task = Task::Draw;

    // All commands.
    std::vector<std::string> inputs;
    std::string list; // the file that names further drawings, "-" for the standard input; empty for none
    bool isNullSeparated = false;
    bool isRecursive = false;

    // Preparing, which drawing does too.
    std::string readBy = "module"; // for whom a drawing is prepared
    std::string layers = "shown";
    std::vector<std::string> onlyLayers; // names with '*'; empty: all
    std::vector<std::string> withoutLayers;
    std::string tolerance; // of flattened curves, a positive number; empty: chosen
    bool forbidsWrap = false;
    std::string encoding; // empty: as the drawing says
    bool redrawsDimensions = false;
    std::string fill = "filled";
    std::string layout; // the name of a sheet, or kAllLayouts; empty: the model space

    // Drawing, and most of them preparing.
    bool listsLayouts = false; // instead of drawing
    std::string output;
    bool keepsPictures = false; // a picture that exists is not replaced
    bool drawsNewerOnly = false;
    bool isForced = false; // what is read-only is replaced, links of others are followed
    std::size_t jobs = 0;  // 0: as many as the machine has cores
    std::string units = "header";
    std::string background; // a CSS colour or "none"; empty: what fits the rest
    bool isOnPaper = false;
    bool hasHairlines = false;
    std::string scale; // of the physical size, as 1:N; empty: the first standard scale at which it fits A0
    bool hasTrueSize = false;
    std::string fit = "all";
    std::string layersAs = "groups";
    bool isAsIs = false; // widths of strokes and sizes as the drawing states them
    bool isQuiet = false;
    bool isVerbose = false;
    std::string messageFormat = "text";
    std::size_t maxMessages = std::numeric_limits<std::size_t>::max();
    bool isStrict = false;
    std::string minDrawn; // the least share of the entities, as a percentage; empty for none
    bool keepsGoing = false;

    // Info.
    bool isJson = false;
    bool withTexts = false;
    bool isSummary = false;
};

// Whether the standard input is meant more than once, by the names of drawings and that of the list.
bool NamesStandardInputTwice(const std::vector<std::string>& names, const std::string& list);

} // namespace plexorn
