#include "cli/files/ProtectedInputs.h"

#include "cli/system/Native.h"

#include <cstdio>

namespace plexorn {

ProtectedInputs::ProtectedInputs(const std::vector<Input>& inputs, const Options& options)
{
    for (const Input& input : inputs)
        if (input.name != kStandardStream)
            Add(FileIdentity(PathFromArgument(input.name)), "one of the drawings");
    if (!options.list.empty() && options.list != kStandardStream)
        Add(FileIdentity(PathFromArgument(options.list)), "the list of the drawings");
    Add(FileIdentity(stdin), "the file of the standard input");
}

const char* ProtectedInputs::WhatIs(const std::string& identity) const
{
    const auto found = m_files.find(identity);
    return found == m_files.end() ? nullptr : found->second;
}

void ProtectedInputs::CheckStandardOutput() const
{
    if (const char* const what = WhatIs(FileIdentity(stdout)))
        throw UsageError(std::string("the standard output is ") + what + "; give it another place");
}

void ProtectedInputs::Add(const std::string& identity, const char* what)
{
    if (!identity.empty())
        m_files.try_emplace(identity, what);
}

} // namespace plexorn
