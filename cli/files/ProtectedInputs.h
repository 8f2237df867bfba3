// The files that the command reads, which nothing may be written into.
#pragma once

#include "cli/files/Inputs.h"
#include "cli/options/Options.h"

#include <map>
#include <string>
#include <vector>

namespace plexorn {

// Knows files by their identity, whatever their names.
class ProtectedInputs {
public:
    // The drawings, the list of drawings, and the file that is open as the standard input.
    ProtectedInputs(const std::vector<Input>& inputs, const Options& options);

    // What the file of that identity is among them, such as "one of the drawings"; null if it is none of
    // them.
    const char* WhatIs(const std::string& identity) const;
    // Throws UsageError when what is printed would be written into one of them.
    void CheckStandardOutput() const;

private:
    void Add(const std::string& identity, const char* what);

    std::map<std::string, const char*> m_files;
};

} // namespace plexorn
