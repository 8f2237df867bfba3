// The values of a written picture that are made of numbers, each held against its form.
#pragma once

#include <optional>
#include <string_view>

// The number that a word is: finite, in decimal digits; nothing for any other word.
std::optional<double> NumberOf(std::string_view word);

// Whether the value of the attribute called name has its form: pairs of numbers, path data, a transform, a
// view box, a dash pattern; every number is finite. Any value of another attribute has.
bool HasFormOf(std::string_view name, std::string_view value);

// Whether a viewer may take the text for the name of something to fetch.
bool MayFetch(std::string_view text);
