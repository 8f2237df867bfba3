// Files whose reads are short, interrupted or fail, as those of a network's folders are: the test program's
// own read takes the place of the system's.
#include "entry/dxfFileOpen.h"
#include "support/Import.h"
#include "support/RecordingHost.h"
#include "support/Sweep.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>

#include <sys/syscall.h>
#include <unistd.h>

namespace {

// What this thread's reads meet.
struct Reads {
    std::size_t most = 0;  // bytes a read, 0 for any number
    int interruptions = 0; // before each read that gives something
    std::size_t left = 0;  // bytes before reading fails
    int error = 0;         // with what it fails; 0 for never
    int pending = 0;       // interruptions that are still to come before the next read
    std::size_t count = 0; // reads so far
};
thread_local Reads* reads = nullptr;

std::string TraceOfReads(const TempFile& file, Reads plan)
{
    RecordingHost::OfThread().Reset();
    plan.pending = plan.interruptions;
    const std::wstring path = file.WidePath();
    reads = &plan;
    EXPECT_TRUE(dxfFileOpen(path.c_str(), RecordingHost::Context()));
    reads = nullptr;
    EXPECT_GT(plan.count, 0u) << "the file is read by the function in this file";
    return RecordingHost::OfThread().Trace();
}

} // namespace

extern "C" ssize_t read(int file, void* bytes, size_t size)
{
    if (reads == nullptr)
        return syscall(SYS_read, file, bytes, size);
    ++reads->count;
    if (reads->pending > 0) {
        --reads->pending;
        errno = EINTR;
        return -1;
    }
    reads->pending = reads->interruptions;
    if (reads->error != 0) {
        if (reads->left == 0) {
            errno = reads->error;
            return -1;
        }
        size = std::min(size, reads->left);
    }
    if (reads->most != 0)
        size = std::min(size, reads->most);
    const ssize_t count = syscall(SYS_read, file, bytes, size);
    if (reads->error != 0 && count > 0)
        reads->left -= static_cast<std::size_t>(count);
    return count;
}

TEST(SystemReads, ThatAreShortOrInterruptedChangeNothing)
{
    for (const SweptDrawing& drawing : SweptDrawings()) {
        const TempFile file(drawing.bytes);
        const std::string expected = TraceOf(drawing.bytes);
        EXPECT_EQ(TraceOfReads(file, {.most = 1}), expected) << drawing.name;
        EXPECT_EQ(TraceOfReads(file, {.most = 13}), expected) << drawing.name;
        EXPECT_EQ(TraceOfReads(file, {.interruptions = 3}), expected) << drawing.name;
        EXPECT_EQ(TraceOfReads(file, {.most = 2, .interruptions = 1}), expected) << drawing.name;
    }
}

// A drawing whose file fails after a byte is the drawing up to there, and one message.
TEST(SystemReads, ThatFailAfterAnyByteAreReported)
{
    const std::string failed = "qlmSetLastError(0, \"DXF\", 11, \"CDxfRead Failed to read file, Line:";
    for (const char* name : {"blocks", "groups", "annotations"}) {
        const auto drawing = std::find_if(SweptDrawings().begin(), SweptDrawings().end(),
                                          [&](const SweptDrawing& one) { return one.name == name; });
        ASSERT_NE(drawing, SweptDrawings().end());
        const TempFile file(drawing->bytes);
        for (std::size_t left = 0; left < drawing->bytes.size(); left += SweepStep(7)) {
            const std::string whole = TraceOf(drawing->bytes.substr(0, left));
            const std::string trace = TraceOfReads(file, {.left = left, .error = EIO});
            EXPECT_EQ(Without(failed, trace), whole) << left;
            EXPECT_NE(trace, whole) << left;
        }
    }
}

TEST(SystemReads, ThatFailAtOnceAreReportedForAnyError)
{
    const TempFile file("0\nSECTION\n2\nX\n");
    for (const int error : {EIO, EISDIR, ENOMEM, ESTALE, EAGAIN, ETIMEDOUT})
        EXPECT_EQ(TraceOfReads(file, {.error = error}),
                  "qlmSetLastError(0, \"DXF\", 11, \"CDxfRead Failed to read file, Line:1\", false, 0)\n");
}
