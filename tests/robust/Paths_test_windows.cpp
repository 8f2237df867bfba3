// What only Windows has among names and files.
#include "base/Api_windows.h"
#include "entry/dxfFileOpen.h"
#include "support/Import.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

#include <thread>

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
    return EntitiesSection({{0, "LINE"}, {11, 10}});
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

// A device may have no end, and would keep the host waiting.
TEST(SpecialFile, DeviceIsNotOpened)
{
    for (const wchar_t* device : {L"NUL", L"\\\\.\\NUL", L"CON", L"CONIN$", L"COM1"})
        EXPECT_EQ(TraceOfPath(device), kNotOpened) << testing::PrintToString(device);
}

TEST(SpecialFile, VolumeIsNotOpened)
{
    EXPECT_EQ(TraceOfPath(L"\\\\.\\C:"), kNotOpened);
    EXPECT_EQ(TraceOfPath(L"C:"), kNotOpened);
}

// The writer's end is closed where a file would end.
TEST(SpecialFile, NamedPipeIsReadToItsEnd)
{
    const std::wstring name = L"\\\\.\\pipe\\plexorn-" + std::to_wstring(GetCurrentProcessId());
    const HANDLE pipe = CreateNamedPipeW(name.c_str(), PIPE_ACCESS_OUTBOUND, PIPE_TYPE_BYTE | PIPE_WAIT, 1,
                                         1 << 16, 0, 0, nullptr);
    ASSERT_NE(pipe, INVALID_HANDLE_VALUE);
    const std::string drawing = Drawing();
    DWORD written = 0;
    std::thread writer([&] {
        if (ConnectNamedPipe(pipe, nullptr) || GetLastError() == ERROR_PIPE_CONNECTED)
            WriteFile(pipe, drawing.data(), static_cast<DWORD>(drawing.size()), &written, nullptr);
        FlushFileBuffers(pipe);
        CloseHandle(pipe);
    });
    const std::string trace = TraceOfPath(name);
    writer.join();
    EXPECT_EQ(written, drawing.size());
    EXPECT_EQ(trace, TraceOf(drawing));
    EXPECT_EQ(TraceOfPath(name), kNotOpened);
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

// The system's narrow names end before that, also those that ask it to take a name as it is.
TEST(Paths, OfThreeHundredCharactersAreNotOpened)
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
    for (const std::wstring& name : {path, path.substr(4)})
        EXPECT_EQ(TraceOfPath(name), kNotOpened);
    EXPECT_TRUE(DeleteFileW(path.c_str()));
    EXPECT_TRUE(RemoveDirectoryW(folder.c_str()));
}
