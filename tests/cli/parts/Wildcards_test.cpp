// Patterns in names, which the command expands where the shell does not.
#include "cli/files/Wildcards.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

namespace fs = std::filesystem;

using plexorn::ExpandWildcards;
using plexorn::HasWildcards;
using Names = std::vector<std::string>;

namespace {

class Wildcards : public testing::Test {
protected:
    Wildcards()
        : m_former(fs::current_path()),
          m_folder(fs::temp_directory_path() / ("plexorn-names-" + std::to_string(std::random_device()())))
    {
        fs::create_directories(m_folder / "in" / "b1");
        fs::create_directories(m_folder / "in" / "b2");
        fs::current_path(m_folder);
        for (const char* name : {"a1.dxf", "a22.DXF", "b.dxf", "notes.txt", "in/b1/x.dxf", "in/b2/y.dxf"})
            std::ofstream(name) << "x";
    }
    ~Wildcards() override
    {
        std::error_code ignored;
        fs::current_path(m_former, ignored);
        fs::remove_all(m_folder, ignored);
    }

    fs::path m_former;
    fs::path m_folder;
};

} // namespace

TEST_F(Wildcards, AStarIsAnyCharacters)
{
    EXPECT_EQ(ExpandWildcards("*.dxf"), Names({"a1.dxf", "a22.DXF", "b.dxf"}));
    EXPECT_EQ(ExpandWildcards("a*2*"), Names({"a22.DXF"}));
    EXPECT_EQ(ExpandWildcards("*"), Names({"a1.dxf", "a22.DXF", "b.dxf", "in", "notes.txt"}));
    EXPECT_EQ(ExpandWildcards("**t**s*"), Names({"notes.txt"}));
}

TEST_F(Wildcards, AQuestionMarkIsOneCharacter)
{
    EXPECT_EQ(ExpandWildcards("a?.dxf"), Names({"a1.dxf"}));
    EXPECT_EQ(ExpandWildcards("?.dxf"), Names({"b.dxf"}));
    std::ofstream(fs::path(u8"ä.dxf")) << "x";
    EXPECT_EQ(ExpandWildcards("?.dxf").size(), 2u);
}

TEST_F(Wildcards, EachPartOfAPathMayHaveThem)
{
    EXPECT_EQ(ExpandWildcards("in/b?/*.dxf"), Names({"in/b1/x.dxf", "in/b2/y.dxf"}));
    EXPECT_EQ(ExpandWildcards("*/b2/y.dxf"), Names({"in/b2/y.dxf"}));
    EXPECT_EQ(ExpandWildcards("in/*/x.dxf"), Names({"in/b1/x.dxf"}));
    EXPECT_EQ(ExpandWildcards("i?/"), Names({"in/"}));
    EXPECT_EQ(ExpandWildcards("./b*"), Names({"./b.dxf"}));
    const std::string whole = (m_folder / "b.d?f").generic_string();
    EXPECT_EQ(ExpandWildcards(whole), Names({(m_folder / "b.dxf").generic_string()}));
}

TEST_F(Wildcards, WhatMatchesNothingStays)
{
    for (const char* name : {"none*", "none?/x.dxf", "b.dxf/*", "plan.dxf", "-"})
        EXPECT_EQ(ExpandWildcards(name), Names({name}));
}

#ifndef _WIN32
TEST_F(Wildcards, AFileOfThatNameCounts)
{
    std::ofstream("*.dxf") << "x";
    EXPECT_EQ(ExpandWildcards("*.dxf"), Names({"*.dxf"}));
    EXPECT_EQ(ExpandWildcards("*.dx?").size(), 4u);
}
#endif

TEST_F(Wildcards, AVerbatimPathHasNone)
{
    EXPECT_FALSE(HasWildcards("\\\\?\\C:\\plan.dxf"));
    EXPECT_FALSE(HasWildcards("//?/C:/plan.dxf"));
    EXPECT_TRUE(HasWildcards("C:\\plan?.dxf"));
}

// Stars that all have to be tried would take time without end if each were tried with the others.
TEST_F(Wildcards, ManyStars)
{
    std::ofstream(std::string(200, 'a')) << "x";
    std::string pattern;
    for (int i = 0; i < 100; ++i)
        pattern += "a*";
    EXPECT_EQ(ExpandWildcards(pattern), Names({std::string(200, 'a')}));
    EXPECT_EQ(ExpandWildcards(pattern + "b"), Names({pattern + "b"}));
}
