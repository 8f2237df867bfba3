// Whatever a drawing holds and whatever fails: preparing ends as it says it does, and what it writes the
// module reads without a message.
#include "prepare/Prepare.h"
#include "support/EveryKind.h"
#include "support/FailingMemory.h"
#include "support/Import.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <sstream>

namespace {

using prepare::EveryKind;

// A message of the module, in a trace.
constexpr const char* kMessage = "qlmSetLastError";

struct Trial {
    std::string input;
    std::size_t failingRead = 0;  // 1 for the first; 0: none
    std::size_t failingWrite = 0; // likewise
    std::string output{};
    std::size_t reads = 0;
    std::size_t writes = 0;

    static std::ptrdiff_t Read(void* user, std::uint64_t offset, char* bytes, std::size_t size)
    {
        auto& trial = *static_cast<Trial*>(user);
        if (++trial.reads == trial.failingRead)
            return -1;
        constexpr std::size_t kMost = 500;
        const std::size_t count =
            std::min({size, trial.input.size() - static_cast<std::size_t>(offset), kMost});
        std::memcpy(bytes, trial.input.data() + offset, count);
        return static_cast<std::ptrdiff_t>(count);
    }

    static bool Write(void* user, const char* bytes, std::size_t size)
    {
        auto& trial = *static_cast<Trial*>(user);
        if (++trial.writes == trial.failingWrite)
            return false;
        const FailingMemory::Pause pause;
        trial.output.append(bytes, size);
        return true;
    }

    PrepareResult Run(PrepareProfile profile = PREPARE_FOR_MODULE)
    {
        PrepareOptions options = {};
        options.profile = profile;
        options.user = this;
        return prepareStream(Read, &options, Write);
    }
};

class AnyInput : public testing::TestWithParam<PrepareProfile> {};

TEST_P(AnyInput, EveryAllocationMayFail)
{
    Trial whole{EveryKind()};
    std::size_t allocations = 0;
    {
        FailingMemory memory(0);
        ASSERT_EQ(whole.Run(GetParam()), PREPARE_DONE);
        allocations = memory.Allocations();
    }
    ASSERT_GT(allocations, 500u);
    for (const auto which : {FailingMemory::Which::Nth, FailingMemory::Which::NthAndLater})
        for (std::size_t n = 1; n <= allocations; ++n) {
            Trial trial{whole.input};
            FailingMemory memory(n, which);
            const PrepareResult result = trial.Run(GetParam());
            EXPECT_TRUE(memory.HasFailed());
            EXPECT_EQ(result, PREPARE_NO_MEMORY) << n;
            EXPECT_EQ(memory.Live(), 0u) << n;
        }
}

TEST_P(AnyInput, EveryReadMayFail)
{
    Trial whole{EveryKind()};
    ASSERT_EQ(whole.Run(GetParam()), PREPARE_DONE);
    for (std::size_t n = 1; n <= whole.reads; ++n) {
        Trial trial{whole.input, n};
        EXPECT_EQ(trial.Run(GetParam()), PREPARE_READ_FAILED) << n;
        EXPECT_EQ(trial.output, "") << n;
    }
}

TEST_P(AnyInput, EveryWriteMayFail)
{
    Trial whole{EveryKind()};
    ASSERT_EQ(whole.Run(GetParam()), PREPARE_DONE);
    for (std::size_t n = 1; n <= whole.writes; ++n) {
        Trial trial{whole.input, 0, n};
        EXPECT_EQ(trial.Run(GetParam()), PREPARE_WRITE_FAILED) << n;
        EXPECT_EQ(whole.output.compare(0, trial.output.size(), trial.output), 0) << n;
        EXPECT_EQ(trial.writes, n);
    }
}

// The module has something to say about a drawing that was prepared for it.
std::string Messages(const std::string& prepared)
{
    std::istringstream trace(TraceOf(prepared));
    std::string found;
    for (std::string line; std::getline(trace, line);)
        if (line.starts_with(kMessage))
            found += line + "\n";
    return found;
}

void CheckPrepared(const std::string& drawing, PrepareProfile profile, const std::string& what)
{
    Trial trial{drawing};
    const PrepareResult result = trial.Run(profile);
    EXPECT_TRUE(result == PREPARE_DONE || result == PREPARE_NO_DRAWING) << what << ": " << result;
    if (profile == PREPARE_FOR_MODULE) {
        EXPECT_EQ(Messages(trial.output), "") << what;
    } else if (result == PREPARE_DONE) {
        Trial again{trial.output};
        EXPECT_EQ(again.Run(profile), PREPARE_DONE) << what << ": its prepared drawing is none";
    }
}

TEST_P(AnyInput, AnyPartOfADrawing)
{
    const std::string whole = EveryKind();
    for (std::size_t size = 0; size < whole.size(); size += 29)
        CheckPrepared(whole.substr(0, size), GetParam(), "the first " + std::to_string(size) + " bytes");
}

std::vector<std::string> LinesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

std::string Joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

TEST_P(AnyInput, AnyLineMayBeAnything)
{
    const std::vector<std::string> whole = LinesOf(EveryKind());
    constexpr const char* kOdd[] = {
        "",     "-1",           "1e308",  "-1e-308",    "nan",  "99999999999",  "\x1b\x07\xff",
        "0",    "70",           "10",     "2147483647", "1e15", "\\H1e300x;{{", "%%%%u%%",
        "-0.5", "*Paper_Space", "AC1009", "VERTEX"};
    std::size_t turn = 0;
    for (std::size_t line = 0; line < whole.size(); line += 3) {
        // One of the values for each line, and the next one for the next.
        const std::string odd = kOdd[turn++ % std::size(kOdd)];
        std::vector<std::string> lines = whole;
        lines[line] = odd;
        CheckPrepared(Joined(lines), GetParam(), "line " + std::to_string(line + 1) + " is " + odd);
    }
}

TEST_P(AnyInput, AnyLineMayBeMissingOrDoubled)
{
    const std::vector<std::string> whole = LinesOf(EveryKind());
    for (std::size_t line = 0; line < whole.size(); line += 7) {
        std::vector<std::string> lines = whole;
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(line));
        CheckPrepared(Joined(lines), GetParam(), "without line " + std::to_string(line + 1));
        lines = whole;
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(line), whole[line]);
        CheckPrepared(Joined(lines), GetParam(), "line " + std::to_string(line + 1) + " twice");
    }
}

INSTANTIATE_TEST_SUITE_P(Profiles, AnyInput, testing::Values(PREPARE_FOR_MODULE, PREPARE_FOR_STANDARD),
                         [](const auto& parameter) {
                             return std::string(parameter.param == PREPARE_FOR_MODULE ? "Module"
                                                                                      : "Standard");
                         });

} // namespace
