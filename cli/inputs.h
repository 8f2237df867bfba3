// Which drawings are meant, and where their pictures go.
#ifndef PLEXORN_CLI_INPUTS_H
#define PLEXORN_CLI_INPUTS_H

#include "exitcodes.h"
#include "options.h"

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace plexorn {

// The name that stands for the standard input or output.
inline constexpr const char* StandardStream = "-";

// Whether path ends in .dxf, in small or capital letters, and has more than that.
bool EndsInDxf(std::string_view path);

// A command line that cannot be followed.
class CUsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A drawing that is meant. One that cannot be taken (a folder without drawings, say) has a reason, as the end
// of a sentence.
struct Input {
    std::string name;
    // Below which folder the picture stands within the folder for pictures: where the drawing stands within
    // the folder that was named.
    std::filesystem::path below;
    std::string reason{};
};

struct Inputs {
    std::vector<Input> files;
    // Whether the command line can mean several drawings, however many there are: it has several names, a
    // folder, or a list.
    bool areMany = false;
};

// Whether the standard input is meant more than once, by the names of drawings and that of the list.
bool NamesStandardInputTwice(const std::vector<std::string>& names, const std::string& list);

// All the drawings that the names, the folders and the list mean, in their order. Throws CUsageError when the
// list cannot be read, cannot be a list, or names the standard input that it comes from.
Inputs FindInputs(const Options& options);

// One drawing to be drawn; when it cannot be, the reason is not empty.
struct Job {
    std::string input;
    std::string output;
    // Whether the folders of the picture are made when they are missing.
    bool makesFolders = false;
    std::string reason{};
    ExitCode code = ExitFile;
};

// The drawings with the names of their pictures. A drawing that is named twice occurs once; of different ones
// that would be drawn to the same picture, and of those whose picture would replace a drawing, only the first
// is drawn. Throws CUsageError when the output that is asked for cannot hold them, or is named like a
// drawing.
std::vector<Job> PlanJobs(const Inputs& inputs, const Options& options);

} // namespace plexorn

#endif
