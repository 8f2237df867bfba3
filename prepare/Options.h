// How a drawing is prepared.
#pragma once

#include <string>
#include <vector>

namespace prepare {

enum class Profile {
    Module,   // makes up for each oddity of the module
    Standard, // makes up for nothing: for any other program
};

// What the fills of a drawing become. For other programs than the module they are hatches or outlines.
enum class FillForm {
    Strokes,  // blocks with agreed names: outlines, and strokes that cover the area in any host
    Named,    // the same without the strokes: for hosts that know the names
    Outlines, // plain polylines
};

struct Options {
    Profile profile = Profile::Module;
    FillForm fill = FillForm::Strokes;
    double tolerance = 0; // how far a flattened curve may be from the true one, in drawing units; 0: chosen
    bool isReadAtOnce = false; // for the module: written longer, in the form that it reads faster
    bool marksLayers = false;  // for the module: whether what is drawn says its layers to hosts that know it
    bool mayWrap = true;       // whether a far or small drawing may be put into one block near the origin
    bool showsAllLayers = false;
    bool isForPaper = false;             // layers that are not plotted are left out
    std::vector<std::string> onlyLayers; // patterns with '*'; empty: all
    std::vector<std::string> withoutLayers;
    std::string encoding; // of the file; empty: as the file says
    bool redrawsDimensions = false;
    bool takesNothing = false; // a file without any section, table or entity is an empty drawing
    std::string layout;        // the sheet that is wanted, by its name; empty: the model space
};

} // namespace prepare
