// Between wide strings (UTF-16 on Windows, UTF-32 elsewhere) and UTF-8, without the locale.
#ifndef PLEXORN_CLI_UTF8_H
#define PLEXORN_CLI_UTF8_H

#include <optional>
#include <string>
#include <string_view>

namespace plexorn {

// The UTF-8 form of text. What is no character (a lone surrogate, a value past U+10FFFF) becomes U+FFFD.
std::string Utf8FromWide(std::wstring_view text);

// The wide form of UTF-8 text; nothing when text is not well-formed UTF-8.
std::optional<std::wstring> WideFromUtf8(std::string_view text);

// text with each byte that belongs to no well-formed character replaced by U+FFFD.
std::string ValidUtf8(std::string_view text);

// text (UTF-8) with its control characters written as \xNN, fit for a terminal: names and values out of a
// file cannot move its cursor or change its colours.
std::string Printable(std::string_view text);

} // namespace plexorn

#endif
