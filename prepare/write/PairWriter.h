// Writes group pairs: a line with the code, a line with the value.
#pragma once

#include "base/Numbers.h"
#include "prepare/write/DrawingWriter.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace prepare {

// How pairs are written.
enum class PairForm : std::uint8_t {
    Short,
    Columns, // codes in three columns and reals with a point: longer, but most readers take them faster
};

// Collects text and passes it on in large parts. Lines end with a single line feed.
class PairWriter {
public:
    explicit PairWriter(const ByteFunction& write, PairForm form = PairForm::Short);
    PairWriter(const PairWriter&) = delete;
    PairWriter& operator=(const PairWriter&) = delete;

    // value holds no line ends.
    void Text(int code, std::string_view value);
    void Integer(int code, std::int64_t value);
    // In upper-case hexadecimal.
    void Handle(int code, std::uint64_t value);
    // With as many significant digits as are asked for, at most 17, and no zero too many; in either form.
    void Real(int code, double value, int digits = kDigits);
    // With that many decimals, 0 to 15, and no zero too many but one after the point of the longer form.
    void Fixed(int code, double value, int decimals);
    // Pairs as another writer made them.
    void Raw(std::string_view pairs);

    // Passes the rest on; false if the function ever returned false.
    bool Finish();

    // Of a coordinate: more digits than any drawing needs, fewer than rounding errors reach.
    static constexpr int kDigits = kDigitsOfLarge;

private:
    char* Code(int code);
    void EndLine(char* end);
    void Flush();
    void Pass(std::string_view text);

    const ByteFunction& m_write;
    const PairForm m_form;
    std::unique_ptr<char[]> m_text;
    char* m_end; // of what is in m_text
    bool m_isStopped = false;
};

void BeginSection(PairWriter& pairs, const char* name);

// Adds the text of a number as PairWriter writes it.
void AppendReal(std::string& text, double value, int digits);

// A pair as PairWriter writes it, for Raw. value holds no line ends.
std::string PairText(int code, std::string_view value, PairForm form = PairForm::Short);

// A made-up name: the prefix and the number.
std::string Numbered(std::string_view prefix, std::size_t number);

} // namespace prepare
