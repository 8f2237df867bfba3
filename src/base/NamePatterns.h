// Patterns of names.
#pragma once

#include <string_view>

// What else but '*' has a meaning in a pattern.
enum class Wildcards { StarAlone, QuestionMark };

// Whether a text is as pattern says, whatever the case of ASCII letters. '*' is any characters or none; with
// QuestionMark, '?' is one character of UTF-8. The time is at most in proportion to the product of the
// lengths.
bool MatchesPattern(std::string_view text, std::string_view pattern, Wildcards wildcards);
