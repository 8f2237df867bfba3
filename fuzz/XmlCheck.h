// A written picture, held against XML and against what a picture may hold.
#pragma once

#include <string>
#include <vector>

// Whose the style sheet and the background's colour are: the command's, which fetch nothing either, or any
// texts that an application gave to the host.
enum class Backdrop { Checked, Any };

// Ends the program when svg is no well-formed XML, or holds an element or attribute that the host never
// writes: no script, no event, nothing of another namespace, no reference to anything but the picture itself,
// nothing that a viewer would fetch, no number that is not one. Returns the texts of its text elements,
// sorted.
std::vector<std::string> RequirePicture(const std::string& svg, Backdrop backdrop);
