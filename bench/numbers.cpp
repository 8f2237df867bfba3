// Times the conversions of numbers and those of the standard library, on numbers as in drawings.
//
//     plexorn_number_bench [--runs N]
//
// Every answer is compared with the standard library's before any time counts. A row is a kind of number and
// a conversion: median nanoseconds for one number, the fastest and the slowest round as parts of the median,
// and what part of the standard library's median it is. Both take turns in the same run.
#include "base/Numbers.h"
#include "support/PaddedText.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t kNumbers = 200'000;

// Numbers of one kind: as doubles, and as the lines that a drawing holds of them.
struct Numbers {
    const char* name;
    std::vector<double> values;
    PaddedText text;
    std::vector<CDxfLine> lines;
};

template <class Make>
Numbers MakeNumbers(const char* name, const Make& make)
{
    std::mt19937_64 random(1);
    std::vector<double> values;
    std::string lines;
    std::vector<std::size_t> ends{0};
    for (std::size_t i = 0; i < kNumbers; ++i) {
        const double value = make(random);
        char text[kLongestNumber];
        const std::to_chars_result result = std::to_chars(text, text + sizeof(text), value);
        std::string line(text, result.ptr);
        if (line.find_first_of(".e") == std::string::npos)
            line += ".0";
        values.push_back(value);
        lines += line + "\n";
        ends.push_back(lines.size());
    }
    Numbers numbers{name, std::move(values), PaddedText(lines), {}};
    for (std::size_t i = 0; i < kNumbers; ++i)
        numbers.lines.push_back(numbers.text.Line(ends[i], ends[i + 1] - ends[i] - 1));
    return numbers;
}

// Coordinates of all digits, measures of few, and what a drawing without depth repeats.
std::array<Numbers, 3> MakeAllNumbers()
{
    const auto between = [](double low, double high) {
        return [=](auto& random) { return std::uniform_real_distribution<double>(low, high)(random); };
    };
    const auto tenths = [](auto& random) {
        return static_cast<double>(static_cast<std::int64_t>(random() % 100'000) - 20'000) / 10;
    };
    return {MakeNumbers("coordinates", between(-20'000, 200'000)), MakeNumbers("tenths", tenths),
            MakeNumbers("zeros", [](auto&) { return 0.0; })};
}

double PlainRead(CDxfLine line)
{
    return ParseReal(line);
}

double StandardRead(CDxfLine line)
{
    double value = 0;
    std::from_chars(line.data(), line.data() + line.size(), value);
    return value;
}

char* StandardWrite(double value, char* out)
{
    return std::to_chars(out, out + kLongestNumber, value, std::chars_format::fixed, 6).ptr;
}

// What a loop over numbers adds up to, so that no conversion is left out.
using Sum = std::uint64_t;

template <double (*read)(CDxfLine)>
Sum ReadAll(const Numbers& numbers)
{
    Sum sum = 0;
    for (const CDxfLine line : numbers.lines)
        sum = sum * 31 + std::bit_cast<std::uint64_t>(read(line));
    return sum;
}

template <char* (*write)(double, char*)>
Sum WriteAll(const Numbers& numbers)
{
    Sum sum = 0;
    char text[kLongestNumber];
    for (const double value : numbers.values) {
        const char* const end = write(value, text);
        sum = sum * 31 + static_cast<Sum>(end - text) * 256 + static_cast<unsigned char>(end[-1]);
    }
    return sum;
}

struct Conversion {
    const char* name;
    Sum (*ours)(const Numbers&);
    Sum (*standard)(const Numbers&);
};
constexpr Conversion kConversions[] = {
    {"ParseLineReal / std::from_chars", ReadAll<ParseLineReal>, ReadAll<StandardRead>},
    {"ParseReal / std::from_chars", ReadAll<PlainRead>, ReadAll<StandardRead>},
    {"FormatFixed6 / std::to_chars", WriteAll<FormatFixed6>, WriteAll<StandardWrite>},
};

[[noreturn]] void Fail(const std::string& text)
{
    std::fprintf(stderr, "plexorn_number_bench: %s\n", text.c_str());
    std::exit(1);
}

void CheckAnswers(const Numbers& numbers)
{
    for (std::size_t i = 0; i < kNumbers; ++i) {
        const CDxfLine line = numbers.lines[i];
        const std::uint64_t bits = std::bit_cast<std::uint64_t>(numbers.values[i]);
        for (const auto read : {ParseLineReal, PlainRead, StandardRead})
            if (std::bit_cast<std::uint64_t>(read(line)) != bits)
                Fail("read wrong: " + std::string(line));
        char ours[kLongestNumber], standard[kLongestNumber];
        if (std::string_view(ours, FormatFixed6(numbers.values[i], ours)) !=
            std::string_view(standard, StandardWrite(numbers.values[i], standard)))
            Fail("written wrong: " + std::string(line));
    }
}

// Nanoseconds for one number, in ascending order.
struct Figures {
    std::vector<double> rounds;
    double Median() const { return rounds[rounds.size() / 2]; }
};

double TimeOf(Sum (*run)(const Numbers&), const Numbers& numbers, Sum& sum)
{
    const auto start = std::chrono::steady_clock::now();
    sum = run(numbers);
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start).count() /
           static_cast<double>(kNumbers);
}

void Time(const Conversion& conversion, const Numbers& numbers, int runs)
{
    Figures ours, standard;
    for (int run = 0; run <= runs; ++run) { // the first is not counted
        Sum sums[2];
        const double times[] = {TimeOf(conversion.ours, numbers, sums[0]),
                                TimeOf(conversion.standard, numbers, sums[1])};
        if (sums[0] != sums[1])
            Fail(std::string(conversion.name) + " differ");
        if (run != 0) {
            ours.rounds.push_back(times[0]);
            standard.rounds.push_back(times[1]);
        }
    }
    std::sort(ours.rounds.begin(), ours.rounds.end());
    std::sort(standard.rounds.begin(), standard.rounds.end());
    const auto percent = [](double part, double whole) { return 100 * part / whole; };
    std::printf("%-12s %-32s %7.1f %7.1f %8.0f %5.0f to %3.0f %% %6.2f\n", numbers.name, conversion.name,
                ours.Median(), standard.Median(), 1000 / ours.Median(),
                percent(ours.rounds.front(), ours.Median()), percent(ours.rounds.back(), ours.Median()),
                ours.Median() / standard.Median());
}

} // namespace

int main(int argc, char** argv)
{
    int runs = 15;
    if (argc == 3 && std::string_view(argv[1]) == "--runs")
        runs = std::max(1, std::atoi(argv[2]));
    else if (argc != 1)
        Fail("usage: plexorn_number_bench [--runs N]");
    const std::array<Numbers, 3> all = MakeAllNumbers();
    for (const Numbers& numbers : all)
        CheckAnswers(numbers);
    std::printf("%-12s %-32s %7s %7s %8s %14s %6s\n", "numbers", "conversion / standard", "ns", "std ns",
                "M/s", "spread", "ratio");
    for (const Numbers& numbers : all)
        for (const Conversion& conversion : kConversions)
            Time(conversion, numbers, runs);
    return 0;
}
