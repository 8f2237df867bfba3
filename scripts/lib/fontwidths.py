#!/usr/bin/env python3
"""Writes prepare/plain/FontWidths.h: how wide the letters of DejaVu Sans Condensed are, by the height of
its capitals.

usage: fontwidths.py [FONT] > prepare/plain/FontWidths.h

FONT is DejaVuSansCondensed.ttf, by default where Debian's fonts-dejavu-extra puts it. Needs python3-fonttools.
"""
import sys
import textwrap

from fontTools.ttLib import TTFont

FONT = "/usr/share/fonts/truetype/dejavu/DejaVuSansCondensed.ttf"

# What European drawings write: Latin, accents, Greek and Cyrillic; more Latin; punctuation, currencies,
# fractions, arrows, mathematical and technical signs.
RANGES = ((0x20, 0x52F), (0x1E00, 0x1EFF), (0x2000, 0x23FF))

HEAD = """\
// How wide the letters of DejaVu Sans Condensed are, in thousandths of the height of its capitals. Written
// by scripts/lib/fontwidths.py from the font's own tables (version %s); not to be edited.
#pragma once

#include <cstdint>

namespace prepare {

// Advances from the base line's point of one letter to the next one's; kNoWidth for what the font lacks.
inline constexpr std::uint16_t kNoWidth = 0xFFFF;

// Where the tails of letters end, below the base line, and how wide an em is.
inline constexpr std::uint16_t kFontDescent = %d;
inline constexpr std::uint16_t kFontEm = %d;

// clang-format off
"""

TAIL = """\
// clang-format on

} // namespace prepare
"""


def main():
    font = TTFont(sys.argv[1] if len(sys.argv) > 1 else FONT)
    glyphs, names, advances = font["glyf"], font.getBestCmap(), font["hmtx"]
    capitals = glyphs[names[ord("H")]].yMax

    def scaled(units):
        return (units * 1000 + capitals // 2) // capitals

    out = HEAD % (
        font["name"].getDebugName(5).split()[-1],
        scaled(-glyphs[names[ord("p")]].yMin),
        scaled(font["head"].unitsPerEm),
    )
    for first, last in RANGES:
        widths = [scaled(advances[names[c]][0]) if c in names else 0xFFFF for c in range(first, last + 1)]
        out += "inline constexpr std::uint16_t kWidthsFrom%04X[] = {\n" % first
        numbers = "".join(" %d," % width for width in widths)
        out += textwrap.fill(numbers, 110, initial_indent="   ", subsequent_indent="    ") + "\n"
        out += "};\n"
    sys.stdout.write(out + TAIL)


main()
