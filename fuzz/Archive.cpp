#include "Archive.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <stdexcept>

namespace {

constexpr std::size_t kBlock = 512;

// Where a header keeps what is read here.
struct Field {
    std::size_t offset;
    std::size_t size;
};
constexpr Field kName = {0, 100};
constexpr Field kSize = {124, 12};
constexpr Field kChecksum = {148, 8};
constexpr Field kKind = {156, 1};
constexpr Field kPrefix = {345, 155};

[[noreturn]] void Refuse(const char* why)
{
    throw std::runtime_error(std::string("not a whole archive: ") + why);
}

// A field's text up to the first zero byte.
std::string_view TextOf(std::string_view header, const Field& field)
{
    const std::string_view text = header.substr(field.offset, field.size);
    return text.substr(0, text.find('\0'));
}

std::size_t NumberOf(std::string_view header, const Field& field)
{
    std::string_view text = TextOf(header, field);
    while (text.starts_with(' '))
        text.remove_prefix(1);
    while (text.ends_with(' '))
        text.remove_suffix(1);
    std::size_t number = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number, 8);
    if (text.empty() || result.ec != std::errc() || result.ptr != end)
        Refuse("a number is missing");
    return number;
}

// The sum of a header's bytes, its own checksum counted as blanks.
std::size_t ChecksumOf(std::string_view header)
{
    std::size_t sum = 0;
    for (std::size_t i = 0; i < header.size(); ++i)
        sum +=
            i - kChecksum.offset < kChecksum.size ? std::uint8_t{' '} : static_cast<std::uint8_t>(header[i]);
    return sum;
}

std::string NameOf(std::string_view header)
{
    const std::string_view prefix = TextOf(header, kPrefix);
    const std::string name(TextOf(header, kName));
    return prefix.empty() ? name : std::string(prefix) + "/" + name;
}

// Archives of old have a zero there for a regular file.
bool IsRegularFile(std::string_view header)
{
    const char kind = header[kKind.offset];
    return kind == '0' || kind == '\0';
}

bool IsEmpty(std::string_view block)
{
    return block.find_first_not_of('\0') == std::string_view::npos;
}

std::string_view Take(std::string_view& bytes, std::size_t size)
{
    if (size > bytes.size())
        Refuse("it is cut off");
    const std::string_view taken = bytes.substr(0, size);
    bytes.remove_prefix(size);
    return taken;
}

} // namespace

std::vector<ArchiveEntry> ReadArchive(std::string_view bytes)
{
    std::vector<ArchiveEntry> entries;
    for (;;) {
        const std::string_view header = Take(bytes, kBlock);
        if (IsEmpty(header)) {
            if (!IsEmpty(Take(bytes, kBlock)))
                Refuse("an entry follows its end");
            return entries;
        }
        if (NumberOf(header, kChecksum) != ChecksumOf(header))
            Refuse("a checksum is wrong");
        const std::string_view content = Take(bytes, NumberOf(header, kSize));
        Take(bytes, (kBlock - content.size() % kBlock) % kBlock);
        if (IsRegularFile(header))
            entries.push_back({NameOf(header), content});
    }
}
