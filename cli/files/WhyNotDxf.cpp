#include "cli/files/WhyNotDxf.h"

#include "base/Blanks.h"
#include "base/Utf8.h"
#include "prepare/pairs/BinaryText.h"
#include "prepare/pairs/PairReader.h"

namespace plexorn {

namespace {

using namespace std::string_view_literals;

struct Signature {
    std::size_t offset;
    std::string_view bytes;
    std::string_view kind;
};

constexpr std::string_view kBinaryDxf = "a binary DXF; only the text form is read";
constexpr std::string_view kDwg = "a DWG drawing; save it as an ASCII DXF";
constexpr std::string_view kUtf16 = "a UTF-16 text; save it in UTF-8 or an ANSI code page";

constexpr Signature kSignatures[] = {
    {0, prepare::BinaryText::kWords, kBinaryDxf},
    {0, "AC10"sv, kDwg},
    // Releases before AC1001.
    {0, "AC1."sv, kDwg},
    {0, "AC2."sv, kDwg},
    {0, "MC0.0"sv, kDwg},
    {0, "PK\x03\x04"sv, "a ZIP archive; unpack it first"},
    {0, "PK\x05\x06"sv, "a ZIP archive with nothing in it"},
    {0, "PK\x07\x08"sv, "a part of a split ZIP archive; unpack it first"},
    {0, "\x1F\x8B"sv, "a gzip archive; unpack it first"},
    {0, "7z\xBC\xAF\x27\x1C"sv, "a 7z archive; unpack it first"},
    {0, "Rar!\x1A\x07"sv, "a RAR archive; unpack it first"},
    {0,
     "\xFD"
     "7zXZ\0"sv,
     "an xz archive; unpack it first"},
    {0, "BZh"sv, "a bzip2 archive; unpack it first"},
    {0, "\x28\xB5\x2F\xFD"sv, "a zstd archive; unpack it first"},
    {0, "\x04\x22\x4D\x18"sv, "an lz4 archive; unpack it first"},
    {0, "LZIP\x01"sv, "an lzip archive; unpack it first"},
    {0, "\x1F\x9D"sv, "a compress archive; unpack it first"},
    {0, "MSCF\0\0\0\0"sv, "a cabinet archive; unpack it first"},
    {257, "ustar"sv, "a tar archive; unpack it first"},
    {0, "%PDF-"sv, "a PDF document"},
    {0, kUtf16LittleMark, kUtf16},
    {0, kUtf16BigMark, kUtf16},
};

bool HasSignature(std::string_view head, const Signature& signature)
{
    return head.size() >= signature.offset + signature.bytes.size() &&
           head.compare(signature.offset, signature.bytes.size(), signature.bytes) == 0;
}

// The first line of head that is not blank, without blanks at its ends.
std::string_view FirstLine(std::string_view head, std::string_view lineEnds)
{
    const std::string_view text = Trim(head);
    return Trim(text.substr(0, text.find_first_of(lineEnds)));
}

// The module reads any number as a code. Codes have one to four digits; a sign occurs in those that programs
// keep to themselves.
bool IsCodeOfModule(std::string_view line)
{
    if (!line.empty() && (line[0] == '-' || line[0] == '+'))
        line.remove_prefix(1);
    return !line.empty() && line.size() <= 4 &&
           line.find_first_not_of("0123456789"sv) == std::string_view::npos;
}

} // namespace

std::string WhyNotDxf(std::string_view head, Taker taker)
{
    if (head.empty())
        return "is empty";
    for (const Signature& signature : kSignatures)
        if (HasSignature(head, signature))
            return "is " + std::string(signature.kind);
    // Some editors put a byte order mark before UTF-8; the reader steps over that line.
    if (head.starts_with(kUtf8Mark))
        head.remove_prefix(kUtf8Mark.size());
    const std::string_view line = FirstLine(head, taker == Taker::Module ? "\n" : "\r\n");
    if (line.empty())
        return "holds nothing but blanks where a DXF begins";
    const bool isCode = taker == Taker::Module ? IsCodeOfModule(line) : prepare::PairReader::IsCode(line);
    return isCode ? "" : "is not a DXF: its first line is not a group code";
}

} // namespace plexorn
