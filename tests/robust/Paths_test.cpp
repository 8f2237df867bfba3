// Names of files that users give.
#include "entry/dxfFileOpen.h"
#include "support/Import.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

std::string Drawing()
{
    return EntitiesSection({{0, "LINE"}, {11, 10}});
}

// Folders and files made for a test, removed in the end.
class Tree {
public:
    Tree() : m_place("") { std::filesystem::create_directory(Root()); }
    ~Tree()
    {
        std::error_code ignored;
        std::filesystem::remove_all(Root(), ignored);
    }
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;

    std::filesystem::path Root() const { return m_place.Path().string() + "-tree"; }

    // Writes the drawing there and imports it; wide is the path as a host gives it, where that is not plain
    // ASCII.
    std::string TraceAt(const std::filesystem::path& path, const std::wstring& wide = {}) const
    {
        std::filesystem::create_directories((Root() / path).parent_path());
        {
            std::ofstream file(Root() / path, std::ios::binary);
            file.exceptions(std::ios::badbit | std::ios::failbit);
            file << Drawing();
        }
        return TraceOfPath(Root().wstring() + L"/" + (wide.empty() ? path.wstring() : wide));
    }

    static std::string TraceOfPath(const std::wstring& path)
    {
        RecordingHost::OfThread().Reset();
        EXPECT_TRUE(dxfFileOpen(path.c_str(), RecordingHost::Context()));
        return RecordingHost::OfThread().Trace();
    }

private:
    TempFile m_place; // whose name is taken by nobody else
};

} // namespace

TEST(Paths, WithBlanksAreOpened)
{
    const Tree tree;
    for (const char* path : {"a b.dxf", " a.dxf", "two  blanks/in a row.dxf", "no ending", "x.y.z.dxf"})
        EXPECT_EQ(tree.TraceAt(path), TraceOf(Drawing())) << path;
}

TEST(Paths, WithSignsThatShellsKnowAreOpened)
{
    const Tree tree;
    for (const char* path :
         {"%s%n%d.dxf", "$HOME.dxf", "a&b;c.dxf", "'a'.dxf", "[a]{b}.dxf", "-o.dxf", "#1.dxf"})
        EXPECT_EQ(tree.TraceAt(path), TraceOf(Drawing())) << path;
}

TEST(Paths, WithLettersOfWesternEuropeAreOpened)
{
    const Tree tree;
    EXPECT_EQ(tree.TraceAt(u8"Gr\u00FC\u00DFe aus/\u00C9t\u00E9 \u00A3.dxf",
                           L"Gr\u00FC\u00DFe aus/\u00C9t\u00E9 \u00A3.dxf"),
              TraceOf(Drawing()));
}

TEST(Paths, OfTheLongestNameAreOpened)
{
    const Tree tree;
    std::string name = "plan.dxf";
    name.insert(0, 180, 'n');
    EXPECT_EQ(tree.TraceAt(name), TraceOf(Drawing()));
}

TEST(Paths, WithDotsAreFollowed)
{
    const Tree tree;
    EXPECT_EQ(tree.TraceAt("folder/plan.dxf"), TraceOf(Drawing()));
    EXPECT_EQ(Tree::TraceOfPath((tree.Root() / "folder/.././folder//plan.dxf").wstring()),
              TraceOf(Drawing()));
}
