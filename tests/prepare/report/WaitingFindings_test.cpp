#include "prepare/report/WaitingFindings.h"

#include <gtest/gtest.h>

#include <string>

namespace prepare {
namespace {

struct Told {
    Told()
    {
        report.TellTo([this](const Report::Key& key, std::uint64_t line, std::uint64_t count) {
            all += key.subject + " " + std::to_string(line) + " " + std::to_string(count) + ";";
        });
    }

    Report report;
    std::string all;
};

TEST(WaitingFindings, AreReportedOneByOneInTheirOrder)
{
    WaitingFindings waiting;
    waiting.Taken().Add(Finding::Cut, "B", "", 7);
    waiting.Taken().Add(Finding::Cut, "A", "", 8, 2);
    waiting.Taken().Add(Finding::Cut, "B", "", 9);
    waiting.Taken().entities = 3;
    Told told;
    told.report.entities = 4;
    EXPECT_EQ(told.all, "");
    waiting.GiveTo(told.report);
    EXPECT_EQ(told.all, "B 7 1;A 8 2;B 9 1;");
    EXPECT_EQ(told.report.Entries().size(), 2U);
    EXPECT_EQ(told.report.entities, 7U);
}

TEST(WaitingFindings, OfEqualLinesAreOfEntitiesOfTheirOwn)
{
    WaitingFindings waiting;
    for (int i = 0; i < 2; ++i) {
        waiting.Taken().BeginEntity();
        waiting.Taken().Add(Finding::NotShown, "A", "", 7);
        waiting.Taken().Add(Finding::NotShown, "A", "again", 7);
    }
    waiting.Taken().isBlank = true;
    Told told;
    waiting.GiveTo(told.report);
    EXPECT_EQ(told.all, "A 7 1;A 7 1;");
    EXPECT_EQ(told.report.Losses(), 2U);
    EXPECT_TRUE(told.report.isBlank);
}

TEST(WaitingFindings, OfWhatIsLeftAreForgotten)
{
    WaitingFindings waiting;
    waiting.Taken().Add(Finding::Cut, "A", "", 1);
    waiting.Leave();
    waiting.Taken().Add(Finding::Cut, "A", "", 2);
    Told told;
    waiting.GiveTo(told.report);
    EXPECT_EQ(told.all, "");
}

} // namespace
} // namespace prepare
