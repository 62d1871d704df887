#include <gtest/gtest.h>

#include "project/project.h"
#include "shell/numbers.h"

TEST(ProjectRecord, DefaultsAndGridBounds) {
    kv::Project p;
    EXPECT_EQ(p.AnlagenTyp, "HeatP");
    EXPECT_EQ(p.tko, "45");
    EXPECT_EQ(p.TeilL, "100");
    // Grids answer outside their bounds without writing past the end.
    p.Armatur.Cell(15, 1) = "x";
    p.Armatur.Cell(16, 1) = "ignored";
    p.Geometr.Cell(0, 0) = "ignored";
    EXPECT_EQ(p.Armatur.Cell(15, 1), "x");
    EXPECT_EQ(std::as_const(p.Armatur).Cell(16, 1), "");
    EXPECT_EQ(std::as_const(p.Geometr).Cell(9, 4), "");
    EXPECT_TRUE(kv::IsTwoStagePlant("heatpump-2st"));
    EXPECT_FALSE(kv::IsTwoStagePlant("HeatP"));
}

TEST(ProjectRecord, PartLoadWithCommaOrPointParsesAlike) {
    kv::Project a, b;
    a.TeilL = "99,5";
    b.TeilL = "99.5";
    EXPECT_EQ(kv::ToNumber(a.TeilL).value, kv::ToNumber(b.TeilL).value);
    EXPECT_LE(kv::ToNumber(a.TeilL).value, 100.0);
    // An empty capacity and a zero capacity stay told apart.
    a.Leistung = "";
    b.Leistung = "0";
    EXPECT_TRUE(kv::ToNumber(a.Leistung).isInteger);
    EXPECT_FALSE(kv::ToNumber(b.Leistung).isInteger);
}
