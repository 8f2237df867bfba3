// The text of a drawing, made from groups.
#pragma once

#include "support/ModelTexts.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>

// A group: its code and its value, as lines of a file. A number is written with the fewest characters that
// give it back; a code that a file would not have may be given as a text.
struct Group {
    template <class Code, class Value>
    Group(const Code& itsCode, const Value& itsValue) : code(LineOf(itsCode)), value(LineOf(itsValue))
    {
    }

    std::string code;
    std::string value;

private:
    template <class Value>
    static std::string LineOf(const Value& value)
    {
        if constexpr (std::is_arithmetic_v<Value>)
            return TextOfNumber(value);
        else
            return std::string(std::string_view(value));
    }
};

// The lines of groups, each ended by a line feed: Dxf({{0, "LINE"}, {8, "Walls"}, {10, 1.5}})
std::string Dxf(std::initializer_list<Group> groups);

// The lines of groups, or any text, so many times.
std::string Repeat(std::initializer_list<Group> groups, int count);
std::string Repeat(std::string_view text, int count);

// Lines as they are, each ended by a line feed: for tests of lines that are not groups.
std::string Lines(std::initializer_list<std::string_view> lines);

// A section from SECTION to ENDSEC; body is its lines.
std::string Section(std::string_view name, std::string_view body);

// A drawing of one section, from SECTION to EOF; body is the section's lines.
std::string SectionAlone(std::string_view name, std::string_view body);

// A drawing of an ENTITIES section, from SECTION to EOF.
std::string EntitiesSection(std::initializer_list<Group> groups);
