#include "prepare/write/LogStorage.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace prepare {
namespace {

TEST(LogStorage, KeepsEachPieceAsItIs)
{
    LogStorage storage;
    std::vector<std::pair<char*, std::string>> pieces;
    for (std::size_t size = 1; size < 700; ++size) {
        const std::string piece(size * size, static_cast<char>('a' + size % 26));
        char* const room = storage.Room(piece.size());
        std::memcpy(room, piece.data(), piece.size());
        pieces.emplace_back(room, piece);
    }
    for (const auto& [room, piece] : pieces)
        ASSERT_TRUE(std::memcmp(room, piece.data(), piece.size()) == 0) << piece.size();
}

TEST(LogStorage, WhatFitsComesRightAfterWhatCameBefore)
{
    LogStorage storage;
    char* const first = storage.Room(100);
    EXPECT_EQ(storage.Room(50), first + 100);
    EXPECT_EQ(storage.Room(1), first + 150);
}

TEST(LogStorage, RoomThatIsNotNeededIsGivenAgain)
{
    LogStorage storage;
    char* const first = storage.Room(100);
    storage.EndAt(first + 30);
    EXPECT_EQ(storage.Room(70), first + 30);
    EXPECT_EQ(storage.Room(1), first + 100);
}

} // namespace
} // namespace prepare
