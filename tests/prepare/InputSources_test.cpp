// The inputs of the C interface.
#include "prepare/InputSources.h"

#include "support/TempFile.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

// What reading from the front gives; "failed" when it fails.
std::string TextOf(FileInput& input)
{
    CDxfSource& source = input.Rewound();
    std::string bytes;
    char part[3];
    std::ptrdiff_t count = 0;
    while ((count = source.Read(part, sizeof(part))) > 0)
        bytes.append(part, static_cast<std::size_t>(count));
    return count == 0 ? bytes : "failed";
}

TEST(FileInput, AFileIsReadFromItsFrontEachTime)
{
    const TempFile file("0\nEOF\n");
    FileInput input(file.Path().string().c_str());
    EXPECT_EQ(TextOf(input), "0\nEOF\n");
    EXPECT_EQ(TextOf(input), "0\nEOF\n");
    EXPECT_EQ(input.Size(), 6u);
}

// A device may have no end. On other systems the names are those of no file.
TEST(FileInput, FoldersDevicesAndWhatIsMissingAreNotRead)
{
    for (const char* const name : {"/", ".", "/dev/zero", "/dev/null", "NUL", "CON", "missing.dxf"}) {
        FileInput input(name);
        EXPECT_EQ(TextOf(input), "failed") << name;
        EXPECT_EQ(input.Size(), 0u) << name;
    }
}

} // namespace
} // namespace prepare
