#include "cli/files/CheckEnding.h"

#include "base/Letters.h"
#include "cli/files/Inputs.h"
#include "cli/system/Native.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace plexorn {

namespace {

// Whether an ending names the form of a file: up to five letters and digits do. What is longer is part of a
// name, as in "tmp.Xa6pw80TqM"; so is a number, and what files are called for a while.
bool NamesForm(std::string_view ending)
{
    constexpr std::size_t kLongest = 5;
    constexpr std::string_view kForNow[] = {"tmp", "temp", "part", "new", "old", "bak"};
    const auto isSmallLetter = [](char c) { return c >= 'a' && c <= 'z'; };
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    return ending.size() <= kLongest && std::any_of(ending.begin(), ending.end(), isSmallLetter) &&
           std::all_of(ending.begin(), ending.end(),
                       [&](char c) { return isSmallLetter(c) || isDigit(c); }) &&
           std::find(std::begin(kForNow), std::end(kForNow), ending) == std::end(kForNow);
}

// The form that an output's name promises and in which this task does not write; empty if it promises none.
std::string OtherForm(const std::string& output, Task task)
{
    const std::string name = ArgumentFromPath(PathFromArgument(output).filename());
    const std::size_t dot = name.rfind('.');
    const std::string ending = dot == std::string::npos ? "" : InSmallLetters(name.substr(dot + 1));
    const bool isTaken = task == Task::Prepare ? ending == "dxf" : ending == "svg" || ending == "xml";
    return !isTaken && NamesForm(ending) ? ending : "";
}

} // namespace

void CheckEnding(const std::string& output, Task task)
{
    // A shell that expands a pattern (-o *.dxf) makes a drawing the picture of another.
    if (EndsInDxf(output) && task == Task::Draw)
        throw UsageError(output + ": a picture's name cannot end in .dxf, as drawings' names do");
    const std::string form = OtherForm(output, task);
    if (!form.empty() && task == Task::Draw)
        throw UsageError(output + ": a picture is written as SVG, not as " + form +
                         "; give a name that ends in .svg, and convert that file");
    if (!form.empty())
        throw UsageError(output + ": a drawing is prepared as ASCII DXF, not as " + form +
                         "; give a name that ends in .dxf");
}

} // namespace plexorn
