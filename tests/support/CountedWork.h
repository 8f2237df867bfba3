// Work whose instructions are counted: what it costs, whatever else the machine does.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

// Runs work, which gives how many calls or other steps it made. tests/robust/work_test.py runs the test
// program under callgrind and counts the instructions of each such run, then compares those of one label at
// different sizes: 0 is what the label costs with nothing in it. In any other run this is a call of work.
std::size_t RunCounted(std::string_view label, std::size_t size, const std::function<std::size_t()>& work);
