// A thread that has little room.
#pragma once

#include "support/TestScale.h"

#include <cstddef>
#include <functional>

// The sanitizers' frames and their own memory for a thread are larger.
inline constexpr std::size_t kSmallStack = kIsSanitized ? 512 * 1024 : 64 * 1024;

// Does work on a thread whose stack has so many bytes, and waits for it; past the stack's end lies a page
// that faults. False, with nothing done, when there is no such thread.
[[nodiscard]] bool RunOnSmallStack(const std::function<void()>& work, std::size_t stack = kSmallStack);
