// Drawings that ask much of a reader.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

// A pattern of tests/robust/hostile.txt.
struct HostilePattern {
    std::string name;
    std::string first;
    std::string repeated; // "{n}" becomes the number of the repetition
    std::string middle;
    std::string second; // repeated too, over half of the drawing; empty for none
    std::string last;

    // A drawing of about that many bytes.
    std::string Drawing(std::size_t size) const;
};

const std::vector<HostilePattern>& HostilePatterns();
