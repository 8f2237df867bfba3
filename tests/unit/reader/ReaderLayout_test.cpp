// What subclasses in other modules depend on: the order of the callbacks and of the reader's fields.
#include "entities/DXF_GRAPHIC_BASE.h"
#include "reader/CDxfRead.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

namespace {

// The place of a callback in its table, from 0; -1 when the member function is not virtual. So a pointer to a
// member function is laid out by compilers of the Itanium ABI on this processor.
template <class Callback>
std::ptrdiff_t SlotOf(Callback callback)
{
    std::ptrdiff_t words[2];
    static_assert(sizeof(callback) == sizeof(words));
    std::memcpy(words, &callback, sizeof(words));
    const bool isVirtual = words[0] % 2 == 1 && words[1] == 0;
    return isVirtual ? (words[0] - 1) / static_cast<std::ptrdiff_t>(sizeof(void*)) : -1;
}

template <class Member>
std::ptrdiff_t PlaceOf(const CDxfRead& reader, const Member& member)
{
    return reinterpret_cast<const char*>(&member) - reinterpret_cast<const char*>(&reader);
}

} // namespace

TEST(ReaderLayout, CallbacksAreInTheirOrder)
{
#if defined(__GXX_ABI_VERSION) && defined(__x86_64__)
    EXPECT_EQ(SlotOf(&CDxfRead::OnDimension), 0);
    EXPECT_EQ(SlotOf(&CDxfRead::OnError), 1);
    EXPECT_EQ(SlotOf(&CDxfRead::OnBlockBegin), 2);
    EXPECT_EQ(SlotOf(&CDxfRead::OnBlockEnd), 3);
    EXPECT_EQ(SlotOf(&CDxfRead::OnLine), 4);
    EXPECT_EQ(SlotOf(&CDxfRead::OnArc), 5);
    EXPECT_EQ(SlotOf(&CDxfRead::OnCircle), 6);
    EXPECT_EQ(SlotOf(&CDxfRead::OnEllipse), 7);
    EXPECT_EQ(SlotOf(&CDxfRead::OnLWPolyline), 8);
    EXPECT_EQ(SlotOf(&CDxfRead::OnText), 9);
    EXPECT_EQ(SlotOf(&CDxfRead::OnMText), 10);
    EXPECT_EQ(SlotOf(&CDxfRead::OnInsert), 11);
#else
    GTEST_SKIP() << "This compiler lays pointers to member functions out in another way.";
#endif
}

TEST(ReaderLayout, FieldsFollowTheTableOfCallbacksInTheirOrder)
{
    const CDxfRead reader;
    EXPECT_EQ(PlaceOf(reader, reader.lineCount), static_cast<std::ptrdiff_t>(sizeof(void*)));
    EXPECT_LT(PlaceOf(reader, reader.lineCount), PlaceOf(reader, reader.colorTable));
    EXPECT_LT(PlaceOf(reader, reader.colorTable), PlaceOf(reader, reader.tables));
    EXPECT_LT(PlaceOf(reader, reader.tables), PlaceOf(reader, reader.blocks));
    EXPECT_LT(PlaceOf(reader, reader.blocks), PlaceOf(reader, reader.entities));
}
