// Numbers against the C library's: reading as strtod, strtoll and "%d" do, writing as snprintf does.
//
// Input: a byte that says whether the rest is doubles and integers to write (odd) or texts to read (even),
// each up to a line feed; of a text to read, the bytes next to it are the input's too.
#include "FuzzInput.h"

#include "base/Numbers.h"
#include "support/NumbersModel.h"
#include "support/PaddedText.h"

#include <bit>
#include <cmath>
#include <string>

namespace {

using Formatter = char* (*)(double, char*);

void RequireFormat(Formatter format, const char* model, double value)
{
    char text[kLongestNumber];
    const char* const end = format(value, text);
    FuzzRequireSame(model, ModelFormat(model, value), {text, static_cast<std::size_t>(end - text)});
}

void Write(double value, std::int32_t integer)
{
    RequireFormat(FormatFixed6, "%f", value);
    RequireFormat(FormatWidth4Fixed2, "%4.2f", value);
    RequireFormat(FormatGeneral, "%g", value);
    char text[kLongestNumber];
    const char* const end = FormatInteger(integer, text);
    FuzzRequireSame("%d", std::to_string(integer), {text, static_cast<std::size_t>(end - text)});
}

// The bits, because -0 and 0 compare equal.
void RequireReal(const char* what, double expected, double actual)
{
    if (std::bit_cast<std::uint64_t>(expected) != std::bit_cast<std::uint64_t>(actual)) [[unlikely]] {
        char text[2][64];
        std::snprintf(text[0], sizeof(text[0]), "%a", expected);
        std::snprintf(text[1], sizeof(text[1]), "%a", actual);
        FuzzFail(what, text[0], text[1]);
    }
}

void RequireInteger(const char* what, std::int32_t expected, std::int32_t actual)
{
    if (expected != actual) [[unlikely]]
        FuzzFail(what, std::to_string(expected), std::to_string(actual));
}

void Read(CDxfLine padded)
{
    const std::string_view line = padded;
    const double real = ModelReal(line);
    RequireReal("ParseReal", real, ParseReal(line));
    RequireReal("ParseLineReal", real, ParseLineReal(padded));
    RequireInteger("ParseInteger", ModelInteger(line), ParseInteger(line));

    std::int32_t expected = 12345, actual = 12345;
    const bool found = ModelCode(line, expected);
    FuzzRequire(ParseCode(line, actual) == found, "ParseCode finds a number where there is one");
    RequireInteger("ParseCode", expected, actual);
    ParseUsualCode(line, actual);
    RequireInteger("ParseUsualCode", expected, actual);

    const std::string_view trimmed = Trim(line);
    const char* const blanks = " \t\n\v\f\r";
    const std::size_t first = line.find_first_not_of(blanks);
    const std::size_t last = line.find_last_not_of(blanks);
    const bool isBlank = first == std::string_view::npos;
    FuzzRequireSame("Trim", isBlank ? "" : line.substr(first, last - first + 1), trimmed);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    const std::uint8_t how = input.Byte();
    if (how % 2 == 1) {
        while (!input.IsAtEnd()) {
            const double value = input.Bits<double>();
            Write(value, input.Bits<std::int32_t>());
        }
        return 0;
    }
    static std::string spelled; // kept for its room
    std::string_view lines = input.Rest();
    if ((how & 2) != 0) {
        SpellRuns(lines, spelled);
        lines = spelled;
    }
    const PaddedText text(lines);
    for (std::size_t begin = 0; begin <= lines.size();) {
        const std::size_t end = std::min(lines.find('\n', begin), lines.size());
        Read(text.Line(begin, end - begin));
        begin = end + 1;
    }
    return 0;
}
