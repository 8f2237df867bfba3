// The sheets of a drawing: what a program shows beside the model space.
#pragma once

#include "prepare/drawing/Entities.h"
#include "prepare/drawing/Point.h"

#include <cstdint>
#include <string>

namespace prepare {

// LAYOUT: a sheet, and how it is plotted. Lengths of the paper are millimetres, those of the paper space its
// units.
struct Layout {
    std::string name;              // 1, the last one
    Handle record = 0;             // 330, the last one: the BLOCK_RECORD of its block; 0: there is none
    std::int32_t order = 0;        // 71: among the tabs
    double leftMargin = 0;         // 40, of the paper before it is turned
    double bottomMargin = 0;       // 41
    double rightMargin = 0;        // 42
    double topMargin = 0;          // 43
    double paperWidth = 0;         // 44
    double paperHeight = 0;        // 45
    double offsetX = 0;            // 46: from the margins' corner to the origin of what is plotted
    double offsetY = 0;            // 47
    double windowLeft = 0;         // 48: what is plotted of the paper space, where plotArea says so
    double windowBottom = 0;       // 49
    double windowRight = 0;        // 140
    double windowTop = 0;          // 141
    double scaledLength = 1;       // 142: this many paper units
    double unscaledLength = 1;     // 143: are this many units of the paper space
    std::int32_t plotFlags = 0;    // 70, the first one: 1 borders of viewports are plotted, 4 centred
    std::int32_t paperUnits = 1;   // 72: 0 inches, else millimetres
    std::int32_t quarterTurns = 0; // 73: counter-clockwise, of what is plotted on the paper
    std::int32_t plotArea = 5;     // 74: 1 the extents, 2 the limits, 4 the window, 5 the sheet
    Point2 limitsMin;              // 10
    Point2 limitsMax;              // 11
    Point3 extentsMin;             // 14
    Point3 extentsMax;             // 15
    // Whether its entities are those of the paper space that say no layout of their own.
    bool isActive = false;
};

} // namespace prepare
