// Times the stages of an import, apart from each other, on one drawing.
//
//     plexorn_bench [--runs N] FILE          all stages in turn, N rounds after one that is not counted
//     plexorn_bench --stage STAGE FILE       one run of one stage, and the peak memory of this process
//
// Stages: "ends" finds line ends only (read and memchr), "getline" is the bare loop of
// std::ifstream::getline(char[1024]) that only counts lines, "read" reads into records (a plain CDxfRead),
// "import" is dxfFileOpen with a host that does nothing, "prepare" prepares for the module and drops what is
// written. Each stage gives an answer, which is compared with what the other stages gave before its time
// counts.
#include "bench/IdleHost.h"
#include "bench/PeakMemory.h"
#include "convert/CDxfReadToQuillmar.h"
#include "entry/dxfFileOpen.h"
#include "input/CDxfFile.h"
#include "prepare/InputSources.h"
#include "prepare/PrepareDrawing.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

// What a stage found: lines of the file, host calls, or bytes.
using Answer = std::size_t;

Answer FindLineEnds(const char* path)
{
    constexpr std::size_t kSize = std::size_t{128} << 10;
    const std::unique_ptr<char[]> buffer(new char[kSize]);
    CDxfFile file(path);
    Answer lines = 0;
    for (std::ptrdiff_t size; (size = file.Read(buffer.get(), kSize)) > 0;) {
        const char* at = buffer.get();
        const char* const end = at + size;
        while ((at = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at))))) {
            ++lines;
            ++at;
        }
    }
    return lines;
}

Answer CountLines(const char* path)
{
    std::ifstream file(path);
    char line[1024];
    Answer lines = 0;
    while (file.getline(line, sizeof(line)))
        ++lines;
    return lines;
}

Answer ReadRecords(const char* path)
{
    CDxfRead reader;
    reader.ReadDxfFile(path);
    return static_cast<Answer>(reader.lineCount);
}

Answer Import(const char* path)
{
    static char context;
    const std::wstring wide(path, path + std::strlen(path));
    dxfFileOpen(wide.c_str(), &context);
    return TakeIdleHostCalls();
}

Answer Prepare(const char* path)
{
    prepare::FileInput input(path);
    prepare::Report report;
    Answer bytes = 0;
    const auto count = [&](std::string_view part) {
        bytes += part.size();
        return true;
    };
    const auto outcome = prepare::PrepareDrawing(input, {}, count, report, {});
    return outcome == prepare::PrepareOutcome::Done ? bytes : 0;
}

struct Stage {
    const char* name;
    Answer (*run)(const char* path);
};
constexpr std::array<Stage, 5> kStages = {{{"ends", FindLineEnds},
                                           {"getline", CountLines},
                                           {"read", ReadRecords},
                                           {"import", Import},
                                           {"prepare", Prepare}}};
using Answers = std::array<Answer, kStages.size()>;

double SecondsOf(const Stage& stage, const char* path, Answer& answer)
{
    const auto start = std::chrono::steady_clock::now();
    answer = stage.run(path);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

struct Figures {
    std::vector<double> seconds;
    double Median() const { return seconds[seconds.size() / 2]; }
};

[[noreturn]] void Fail(const std::string& text)
{
    std::fprintf(stderr, "plexorn_bench: %s\n", text.c_str());
    std::exit(1);
}

// The line counts of the first three stages agree (the reader may stop at an "EOF" before the last
// line), the import calls the host, and preparing writes something.
void CheckAnswers(const Answers& answers)
{
    if (answers[0] == 0 || answers[0] != answers[1])
        Fail("the yardsticks count different lines");
    if (answers[2] > answers[0] + 1 || answers[2] + 4 < answers[0])
        Fail("the reader did not read the whole file");
    if (answers[3] == 0)
        Fail("the import drew nothing");
    if (answers[4] == 0)
        Fail("nothing was prepared");
}

void RunAllStages(const char* path, int runs)
{
    std::array<Figures, kStages.size()> figures;
    Answers first{};
    for (int run = 0; run <= runs; ++run)
        for (std::size_t i = 0; i < kStages.size(); ++i) {
            Answer answer = 0;
            const double seconds = SecondsOf(kStages[i], path, answer);
            if (run == 0)
                first[i] = answer;
            else if (answer != first[i])
                Fail("two runs gave different answers");
            if (run != 0)
                figures[i].seconds.push_back(seconds);
            else if (i + 1 == kStages.size())
                CheckAnswers(first);
        }
    for (Figures& figure : figures)
        std::sort(figure.seconds.begin(), figure.seconds.end());
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    const double megabytes = static_cast<double>(file.tellg()) / 1e6;
    std::printf("%-8s %10s %10s %10s %10s %10s\n", "stage", "median s", "min s", "max s", "MB/s", "/getline");
    for (std::size_t i = 0; i < kStages.size(); ++i)
        std::printf("%-8s %10.4f %10.4f %10.4f %10.0f %10.3f\n", kStages[i].name, figures[i].Median(),
                    figures[i].seconds.front(), figures[i].seconds.back(), megabytes / figures[i].Median(),
                    figures[i].Median() / figures[1].Median());
}

void RunOneStage(const char* path, std::string_view name)
{
    for (const Stage& stage : kStages)
        if (stage.name == name) {
            Answer answer = 0;
            const double seconds = SecondsOf(stage, path, answer);
            std::printf("%s answer %zu seconds %.4f peak %zu\n", stage.name, answer, seconds, PeakMemory());
            return;
        }
    Fail("no such stage");
}

} // namespace

int main(int argc, char** argv)
{
    int runs = 7;
    const char* stage = nullptr;
    const char* path = nullptr;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument == "--runs" && i + 1 < argc)
            runs = std::max(1, std::atoi(argv[++i]));
        else if (argument == "--stage" && i + 1 < argc)
            stage = argv[++i];
        else
            path = argv[i];
    }
    if (path == nullptr)
        Fail("usage: plexorn_bench [--runs N] [--stage ends|getline|read|import|prepare] FILE");
    if (stage != nullptr)
        RunOneStage(path, stage);
    else
        RunAllStages(path, runs);
    return 0;
}
