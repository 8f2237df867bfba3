// The system's ANSI code page: CP_ACP on Windows, UTF-8 elsewhere.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Whether the code page is UTF-8, which a Windows can have too.
bool IsCodePageUtf8();

// Converts to wide characters; wide has room for narrow.size() units. Returns the number of units written,
// with no terminating zero. Elsewhere than on Windows each invalid part of UTF-8 (as Utf8ToWide finds it)
// becomes one U+FFFD; on Windows the system decides.
std::size_t ToWide(std::string_view narrow, wchar_t* wide);

// The narrow form of a path, zero-terminated, as the system's file functions take it. What has no equivalent
// is replaced, as the system replaces it.
std::string ToNarrowPath(const wchar_t* path);
