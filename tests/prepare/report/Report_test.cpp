#include "prepare/report/Report.h"

#include <gtest/gtest.h>

namespace prepare {
namespace {

TEST(Report, WhatIsNotShownOrNotWholeIsALoss)
{
    Report report;
    report.Add(Finding::Rewritten, "SPLINE", "1 polyline", 1);
    report.Add(Finding::Changed, "IMAGE", "drawn as its frame", 2);
    report.Add(Finding::Repaired, "file", "ends without EOF", 3);
    EXPECT_EQ(report.Losses(), 0U);
    report.Add(Finding::NotShown, "3DSOLID", "a modelled solid or surface", 4);
    EXPECT_EQ(report.Losses(), 1U);
    report.Add(Finding::Cut, "INSERT", "blocks are nested too deep", 5);
    EXPECT_EQ(report.Losses(), 2U);
}

TEST(Report, AnEntityIsNotShownOnceHoweverMuchItLacks)
{
    Report report;
    report.Add(Finding::NotShown, "LINE", "numbers out of range", 7);
    report.Add(Finding::NotShown, "LINE", "it has no size", 7);
    EXPECT_EQ(report.Entries().size(), 1U);
    EXPECT_EQ(report.Losses(), 1U);
    report.BeginEntity();
    report.Add(Finding::NotShown, "LINE", "it has no size", 7);
    EXPECT_EQ(report.Entries().size(), 2U);
}

} // namespace
} // namespace prepare
