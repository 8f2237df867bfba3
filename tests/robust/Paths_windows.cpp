// What only Windows has among names and files.
#include "entry/dxfFileOpen.h"
#include "support/Import.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

namespace {

const char* const kNotOpened = "qlmSetLastError(0, \"DXF\", 1, \"Failed to load DXF file.\", false, 0)\n";

std::string TraceOfPath(const std::wstring& path)
{
    RecordingHost::OfThread().Reset();
    EXPECT_TRUE(dxfFileOpen(path.c_str(), RecordingHost::Context()));
    return RecordingHost::OfThread().Trace();
}

std::string Drawing()
{
    return EntitiesSection({"0", "LINE", "11", "10"});
}

} // namespace

TEST(SpecialFile, ThatAnotherHasForItselfIsNotOpened)
{
    const TempFile file(Drawing());
    const HANDLE alone =
        CreateFileW(file.WidePath().c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(alone, INVALID_HANDLE_VALUE);
    EXPECT_EQ(TraceOfPath(file.WidePath()), kNotOpened);
    CloseHandle(alone);
    EXPECT_EQ(TraceOfPath(file.WidePath()), TraceOf(Drawing()));
}

TEST(SpecialFile, NullDeviceIsEmptyOrNotOpened)
{
    const std::string trace = TraceOfPath(L"NUL");
    EXPECT_TRUE(trace.empty() || trace == kNotOpened) << trace;
}

TEST(SpecialFile, FolderIsNotOpened)
{
    EXPECT_EQ(TraceOfPath(L"C:\\"), kNotOpened);
    EXPECT_EQ(TraceOfPath(L"C:\\windows"), kNotOpened);
}

TEST(Paths, WithEitherSlashAreOpened)
{
    const TempFile file(Drawing());
    std::wstring path = file.WidePath();
    for (wchar_t& character : path)
        character = character == L'/' ? L'\\' : character;
    EXPECT_EQ(TraceOfPath(path), TraceOf(Drawing()));
    for (wchar_t& character : path)
        character = character == L'\\' ? L'/' : character;
    EXPECT_EQ(TraceOfPath(path), TraceOf(Drawing()));
}

// The system's narrow names end before that: a file that has such a name may be opened or not.
TEST(Paths, OfThreeHundredCharactersAreAnswered)
{
    const TempFile file("");
    const std::wstring folder = L"\\\\?\\" + file.WidePath() + L"-" + std::wstring(150, L'f');
    const std::wstring path = folder + L"\\" + std::wstring(150, L'g');
    ASSERT_TRUE(CreateDirectoryW(folder.c_str(), nullptr));
    const HANDLE made = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    ASSERT_NE(made, INVALID_HANDLE_VALUE);
    const std::string drawing = Drawing();
    DWORD written = 0;
    EXPECT_TRUE(WriteFile(made, drawing.data(), static_cast<DWORD>(drawing.size()), &written, nullptr));
    CloseHandle(made);
    for (const std::wstring& name : {path, path.substr(4)}) {
        const std::string trace = TraceOfPath(name);
        EXPECT_TRUE(trace == kNotOpened || trace == TraceOf(drawing)) << trace;
    }
    EXPECT_TRUE(DeleteFileW(path.c_str()));
    EXPECT_TRUE(RemoveDirectoryW(folder.c_str()));
}
