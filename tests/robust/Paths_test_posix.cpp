// What is not a regular file, or may not be read: a host never waits for it.
#include "entry/dxfFileOpen.h"
#include "support/Import.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

const char* const kNotOpened = "qlmSetLastError(0, \"DXF\", 1, \"Failed to load DXF file.\", false, 0)\n";

constexpr uid_t kNobody = 65534;

std::string TraceOfPath(const std::filesystem::path& path)
{
    RecordingHost::OfThread().Reset();
    EXPECT_TRUE(dxfFileOpen(path.wstring().c_str(), RecordingHost::Context()));
    return RecordingHost::OfThread().Trace();
}

std::string Drawing()
{
    return EntitiesSection({{0, "LINE"}, {11, 10}});
}

// A name that nobody has, freed in the end.
class Name {
public:
    Name() : m_place(""), path(m_place.Path().string() + "-special") {}
    ~Name()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    Name(const Name&) = delete;
    Name& operator=(const Name&) = delete;

private:
    TempFile m_place;

public:
    const std::filesystem::path path;
};

} // namespace

TEST(SpecialFile, DeviceIsNotOpened)
{
    for (const char* device : {"/dev/zero", "/dev/null", "/dev/full", "/dev/tty", "/dev/random"})
        EXPECT_EQ(TraceOfPath(device), kNotOpened) << device;
}

TEST(SpecialFile, FolderIsNotOpened)
{
    EXPECT_EQ(TraceOfPath("/"), kNotOpened);
    EXPECT_EQ(TraceOfPath("/dev/fd"), kNotOpened);
}

TEST(SpecialFile, SocketIsNotOpened)
{
    const Name name;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = name.path.string();
    ASSERT_LT(path.size(), sizeof(address.sun_path));
    path.copy(address.sun_path, path.size());
    const int bound = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(bound, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    EXPECT_EQ(TraceOfPath(name.path), kNotOpened);
    close(bound);
}

TEST(SpecialFile, PipeThatNobodyWritesToIsEmpty)
{
    const Name name;
    ASSERT_EQ(mkfifo(name.path.c_str(), 0600), 0);
    EXPECT_EQ(TraceOfPath(name.path), "");
}

TEST(SpecialFile, PipeIsReadUntilItsWriterCloses)
{
    const Name name;
    ASSERT_EQ(mkfifo(name.path.c_str(), 0600), 0);
    const int writer = open(name.path.c_str(), O_RDWR | O_CLOEXEC); // waits for nobody
    ASSERT_GE(writer, 0);
    std::thread slow([&] {
        for (const char byte : Drawing()) {
            EXPECT_EQ(write(writer, &byte, 1), 1);
            std::this_thread::yield();
        }
        close(writer);
    });
    EXPECT_EQ(TraceOfPath(name.path), TraceOf(Drawing()));
    slow.join();
}

TEST(SpecialFile, ChainOfLinksIsFollowedAndACircleIsNotOpened)
{
    const TempFile file(Drawing());
    const Name first, second;
    std::filesystem::create_symlink(file.Path(), first.path);
    std::filesystem::create_symlink(first.path, second.path);
    EXPECT_EQ(TraceOfPath(second.path), TraceOf(Drawing()));
    std::filesystem::remove(first.path);
    std::filesystem::create_symlink(second.path, first.path);
    EXPECT_EQ(TraceOfPath(second.path), kNotOpened);
}

// Root may read everything: a child process becomes another user.
TEST(SpecialFile, ThatMayNotBeReadIsNotOpened)
{
    const TempFile file(Drawing());
    ASSERT_EQ(chmod(file.Path().c_str(), 0), 0);
    const auto importAsNobody = [&] {
        if (geteuid() == 0 && seteuid(kNobody) != 0)
            std::_Exit(2);
        std::_Exit(TraceOfPath(file.Path()) == kNotOpened ? 0 : 1);
    };
    EXPECT_EXIT(importAsNobody(), testing::ExitedWithCode(0), "");
}

TEST(SpecialFile, InAFolderThatMayNotBeEnteredIsNotOpened)
{
    const Name folder;
    std::filesystem::create_directory(folder.path);
    std::ofstream(folder.path / "plan.dxf") << Drawing();
    EXPECT_EQ(TraceOfPath(folder.path / "plan.dxf"), TraceOf(Drawing()));
    ASSERT_EQ(chmod(folder.path.c_str(), 0), 0);
    const auto importAsNobody = [&] {
        if (geteuid() == 0 && seteuid(kNobody) != 0)
            std::_Exit(2);
        std::_Exit(TraceOfPath(folder.path / "plan.dxf") == kNotOpened ? 0 : 1);
    };
    EXPECT_EXIT(importAsNobody(), testing::ExitedWithCode(0), "");
    chmod(folder.path.c_str(), 0700);
}

TEST(SpecialFile, IsClosedWithNoDescriptorLeft)
{
    const TempFile file(Drawing());
    const int before = dup(0);
    close(before);
    for (const std::filesystem::path& path :
         {file.Path(), std::filesystem::path("/dev/null"), std::filesystem::path("/"),
          std::filesystem::path("/not there")})
        TraceOfPath(path);
    const int after = dup(0);
    close(after);
    EXPECT_EQ(after, before);
}

TEST(Paths, OfThreeHundredCharactersAndMoreAreOpened)
{
    const Name folder;
    std::string path = folder.path.string();
    while (path.size() < 1000) {
        path.append("/").append(60, 'f');
        std::filesystem::create_directories(path);
        std::ofstream(path + "/plan.dxf") << Drawing();
        EXPECT_EQ(TraceOfPath(path + "/plan.dxf"), TraceOf(Drawing())) << path;
    }
}
