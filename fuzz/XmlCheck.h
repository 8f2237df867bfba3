// A written picture, held against XML and against what a picture may hold.
#pragma once

#include <string>
#include <vector>

// Ends the program when svg is no well-formed XML, or holds an element or attribute that the host never
// writes: no script, no event, nothing of another namespace, no reference to anything but the picture itself,
// no number that is not one. Returns the texts of its text elements, sorted.
std::vector<std::string> RequirePicture(const std::string& svg);
