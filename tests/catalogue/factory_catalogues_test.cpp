// The factory catalogues: every default series exists, and the ratings stay
// within the ranges and ratios that the data directory's README gives.
#include <gtest/gtest.h>

#include <cmath>

#include "catalogue/catalogue.h"
#include "catalogue/matchcode.h"
#include "shell/files.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

namespace {

class FactoryCatalogues : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        WorkspaceTest::SetUp();
        kv::InstallFactoryData(ws);
        kv::BuildMatchcode(ws);
    }
    // All articles that the Matchcode lists under a group code.
    std::vector<kv::Article> Group(int code, char letter = 'I') {
        std::vector<kv::Article> all;
        for (const kv::SeriesEntry& e : kv::LookupSeries(ws, code, letter))
            for (auto& row : kv::ReadSeriesArticles(ws, e.base, e.position)) all.push_back(row.article);
        return all;
    }
};

TEST_F(FactoryCatalogues, SeriesChoiceFilesPointAtFilledSeries) {
    EXPECT_EQ(kv::ReadCatalogueList(ws).size(), 7u);
    for (const char* file : {"AddrNeu.LST", "Sole.LST"}) {
        kv::RecordReader in = kv::OpenIn(ws, file);
        std::string caption, catalogue;
        int position = 0, rows = 0;
        while (in.Read(caption) && in.Read(catalogue) && in.Read(position)) {
            ++rows;
            EXPECT_FALSE(kv::ReadSeriesArticles(ws, catalogue.substr(0, 7), position).empty()) << file << " " << caption;
        }
        EXPECT_EQ(rows, 18) << file;
    }
    for (const char* refrigerant : {"R290", "R410A", "R134a", "R404A", "R717", "R744"}) {
        const auto list = kv::CompressorList(ws, refrigerant);
        ASSERT_FALSE(list.empty()) << refrigerant;
        for (const auto& s : list)
            EXPECT_FALSE(kv::ReadSeriesArticles(ws, s.file.substr(0, 7), kv::OldPositionToNew(s.oldPosition)).empty());
    }
    // Every one of the eighteen groups has articles in the "I" index.
    for (int slot = 1; slot <= 18; ++slot) EXPECT_FALSE(Group(kv::SlotCode(slot)).empty()) << "slot " << slot;
    EXPECT_FALSE(Group(600, 'C').empty());
}

TEST_F(FactoryCatalogues, RatingsArePhysicallyConsistent) {
    double kvMin = 1e9, kvMax = 0;
    for (const kv::Article& a : Group(250)) {
        kvMin = std::min(kvMin, a.Number(kv::field::Size));
        kvMax = std::max(kvMax, a.Number(kv::field::Size));
        EXPECT_GT(a.Number(kv::field::Rated1), a.Number(kv::field::Rated2));  // dp max above dp min
    }
    EXPECT_DOUBLE_EQ(kvMin, 0.2);
    EXPECT_DOUBLE_EQ(kvMax, 25);
    double vhMin = 1e9, vhMax = 0;
    for (const kv::Article& a : Group(550)) {
        const double vh = a.Number(kv::field::Size), pel = a.Number(kv::field::Rated2);
        vhMin = std::min(vhMin, vh);
        vhMax = std::max(vhMax, vh);
        const double perVolume = pel / vh;  // kW per m³/h
        if (a.Field(kv::field::Type).rfind("BTC", 0) == 0) EXPECT_NEAR(perVolume, 0.85, 0.02);
        else EXPECT_TRUE(perVolume > 0.17 && perVolume < 0.22) << a.Field(kv::field::Type);
    }
    EXPECT_LE(vhMin, 2);
    EXPECT_EQ(vhMax, 500);
    for (const kv::Article& a : Group(800)) {
        EXPECT_GE(a.Number(kv::field::Size), 1);
        EXPECT_LE(a.Number(kv::field::Size), 200);
    }
    bool electronic = false;
    for (const kv::Article& a : Group(100)) {
        EXPECT_GT(a.Number(kv::field::Rated1), 0) << a.Field(kv::field::Type);
        electronic = electronic || a.Field(kv::field::Type).rfind("MVL", 0) == 0;
    }
    EXPECT_TRUE(electronic);
    // Air coolers: fan power and air flow grow with the capacity at 8 K.
    for (const kv::Article& a : Group(600)) {
        if (a.Field(kv::field::Type).front() == 'w') continue;
        const double q = a.Number(kv::field::Rated1);
        EXPECT_GT(q, 0);
        // m³/h per kW: 4.5 K of air warming, 6 K in the deep coils above 150 kW
        EXPECT_NEAR(a.Number(9) / q, q > 150 ? 497 : 640, 60) << a.Field(kv::field::Type);
    }
}

}  // namespace
