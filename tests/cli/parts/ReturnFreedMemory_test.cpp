// Memory that the runtime library keeps.
#include "cli/system/Native.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <fstream>
#include <memory>
#include <utility>
#include <vector>

namespace plexorn {
namespace {

// The sanitizers have a heap of their own.
#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define HAS_OWN_HEAP
#endif
#endif
#if defined(__GLIBC__) && !defined(HAS_OWN_HEAP) && !defined(__SANITIZE_ADDRESS__)
constexpr bool kHasRuntimeOfLinux = true;
#else
constexpr bool kHasRuntimeOfLinux = false;
#endif

// The pages that this process has in memory, where the system tells; otherwise 0.
std::size_t PagesInMemory()
{
    std::ifstream file("/proc/self/statm");
    std::size_t all = 0, inMemory = 0;
    file >> all >> inMemory;
    return inMemory;
}

TEST(ReturnFreedMemory, SmallPiecesBeforeOneThatStays)
{
    if (!kHasRuntimeOfLinux)
        GTEST_SKIP() << "another runtime library";
    constexpr std::size_t kPieces = 20'000, kSize = 1000;
    std::vector<std::unique_ptr<char[]>> pieces;
    for (std::size_t i = 0; i < kPieces; ++i) {
        pieces.push_back(std::make_unique<char[]>(kSize));
        std::memset(pieces.back().get(), 1, kSize);
    }
    const std::unique_ptr<char[]> last = std::move(pieces.back());
    pieces.clear();
    const std::size_t before = PagesInMemory();
    ReturnFreedMemory();
    if (before == 0)
        GTEST_SKIP() << "nothing tells what is in memory";
    EXPECT_LT(PagesInMemory() + 3000, before); // of 4,900
}

} // namespace
} // namespace plexorn
