// How large the large tests are.
#pragma once

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define PLEXORN_IS_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define PLEXORN_IS_SANITIZED 1
#endif
#endif

#ifdef PLEXORN_IS_SANITIZED
inline constexpr bool kIsSanitized = true;
#else
inline constexpr bool kIsSanitized = false;
#endif

#ifdef NDEBUG
inline constexpr bool kIsOptimized = !kIsSanitized;
#else
inline constexpr bool kIsOptimized = false;
#endif

// A million, where the compiler optimizes; builds that are ten times slower take a tenth of everything. (On
// Windows the recording host finds its thread's calls slowly.)
#ifdef _WIN32
inline constexpr int kMillion = 100'000;
#else
inline constexpr int kMillion = kIsOptimized ? 1'000'000 : 100'000;
#endif
