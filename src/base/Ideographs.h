// East Asian characters: they are an em wide, and a line may break between two of them without a blank.
#pragma once

// As the property East_Asian_Width of Unicode has it for whole blocks, W and F.
constexpr bool IsIdeograph(char32_t character)
{
    const auto isIn = [character](char32_t first, char32_t last) {
        return character >= first && character <= last;
    };
    return character >= 0x1100 &&
           (character <= 0x115F || isIn(0x2E80, 0xA4CF) || isIn(0xAC00, 0xD7A3) || isIn(0xF900, 0xFAFF) ||
            isIn(0xFE30, 0xFE4F) || isIn(0xFF00, 0xFF60) || isIn(0xFFE0, 0xFFE6) || isIn(0x20000, 0x3FFFD));
}
