#include "cli/options/Options.h"

#include <algorithm>

namespace plexorn {

std::string_view DoneWord(Task task)
{
    return task == Task::Prepare ? "prepared" : "drawn";
}

std::string NotDone(Task task)
{
    return std::string("is not ").append(DoneWord(task)).append(": ");
}

bool NamesStandardInputTwice(const std::vector<std::string>& names, const std::string& list)
{
    return std::count(names.begin(), names.end(), kStandardStream) + (list == kStandardStream) > 1;
}

} // namespace plexorn
