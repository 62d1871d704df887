#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "catalogue/selection_plan.h"
#include "cycle/kernel.h"
#include "lists/calc_lists.h"
#include "lists/list_generation.h"
#include "lists/list_rows.h"
#include "lists/list_screen.h"
#include "project/project_file.h"
#include "sample_fixture.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

namespace {

using kvtest::WorkspaceTest;

class Lists : public WorkspaceTest {
protected:
    void SetUp() override {
        WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
    }
    // A sample brought through the Calculate button, which leaves the
    // calculation's own lists.
    void Calculate(const std::string& sample) {
        kv::SchemeScreen scheme;
        ASSERT_TRUE(kvtest::OpenSampleScheme(ws, scheme, sample));
        kv::DeleteFile(ws, kv::lists::kFittings);
        ASSERT_TRUE(kv::CalculateButton(ws, scheme));
    }
    kv::ListFile Read(std::string_view name) {
        int head = 0, items = 0;
        EXPECT_TRUE(kv::ListLayout(name, head, items));
        return kv::ReadListFile(ws, name, head, items);
    }
};

// Kinds of the rows of a list, in order, as their captions.
std::vector<std::string> Kinds(const kv::ListFile& f) {
    std::vector<std::string> out;
    for (const auto& row : f.rows)
        if (!row[0].empty()) out.push_back(row[0]);
    return out;
}

TEST_F(Lists, PlainPlantInTheOrderOfGeneration) {
    Calculate("AirWater_R290.prj");
    const kv::ListGeneration g = kv::GenerateLists(ws);
    ASSERT_TRUE(g.ok) << g.message;
    EXPECT_EQ(g.emptyRows, 0);

    const kv::ListFile parts = Read(kv::lists::kParts);
    ASSERT_EQ(parts.header.size(), 14u);
    EXPECT_EQ(parts.header[1], ws.project.ProBeschr);
    EXPECT_EQ(parts.header[2], ws.captions[kv::Cap::Refrigerant]);  // the label at generation
    EXPECT_EQ(parts.header[7], "5");
    EXPECT_EQ(parts.header[13], ws.project.KaelteM);
    // Suction line first, then discharge, liquid, injection: the fittings the
    // line sheet counts, with its counts as quantities.
    std::vector<std::string> lines;
    for (const auto& row : parts.rows)
        if (!row[5].empty() && (lines.empty() || lines.back() != row[5])) lines.push_back(row[5]);
    const std::vector<std::string> expected = {ws.captions[kv::Cap::LineSuction], ws.captions[kv::Cap::LineDischarge],
                                               ws.captions[kv::Cap::LineLiquid], ws.captions[kv::Cap::LineInjection]};
    EXPECT_EQ(lines, expected);
    EXPECT_EQ(parts.rows[0][0], ws.captions[kv::Cap::KindBallValve]);
    EXPECT_EQ(parts.rows[0][7], ws.project.Armatur.Cell(1, kv::Suction));

    // Main units: evaporator, compressor, condenser, receiver, each with its
    // change block of 25 items holding kind, line and capacity.
    const kv::ListFile units = Read(kv::lists::kUnits);
    ASSERT_EQ(units.header.size(), 4u);
    const std::vector<std::string> unitKinds = {
        ws.captions[kv::Cap::KindEvaporator], ws.captions[kv::Cap::KindCompressor],
        ws.captions[kv::Cap::KindCondenser], ws.captions[kv::Cap::KindReceiver]};
    EXPECT_EQ(Kinds(units), unitKinds);
    const auto blocks = kv::ReadChangeBlocks(ws, kv::lists::kUnitsChange, kv::lists::kChangeGenerated);
    ASSERT_EQ(blocks.size(), 4u);  // accessory rows have none
    EXPECT_EQ(blocks[0][2], "13");
    EXPECT_EQ(blocks[1][2], "12");
    EXPECT_NEAR(kv::ToNumber(blocks[0][23]), std::trunc(100 * ws.cycle.Q0) / 100, 0.051);
    EXPECT_EQ(kv::ReadChangeBlocks(ws, kv::lists::kPartsChange, kv::lists::kChangeGenerated).size(),
              static_cast<std::size_t>(g.fittingRows));

    // The charge: lines and heat exchangers plus what the vessels add.
    const auto charge = kv::ReadCharge(ws);
    EXPECT_GT(charge[0], 0.1);
    EXPECT_GE(charge[1], charge[0]);
    EXPECT_FALSE(std::filesystem::exists(kv::ResolveName(ws, kv::lists::kPed)));

    // The report entries: a group head per place and the frequency of the compressor.
    const std::string report = kv::ReadWholeFile(kv::ResolveName(ws, kv::lists::kComponentResults));
    EXPECT_NE(report.find("§$&" + ws.captions[kv::Cap::KindCompressor]), std::string::npos);
    EXPECT_NE(report.find(" Hz"), std::string::npos);
}

TEST_F(Lists, EconomizerAndBrinePlants) {
    Calculate("Economizer_R134a.prj");
    kv::GenerateLists(ws);
    const kv::ListFile parts = Read(kv::lists::kParts);
    bool ecoBranch = false, economizer = false, partLoad = false;
    for (const auto& row : parts.rows) {
        ecoBranch |= row[5] == ws.captions[kv::Cap::LineEcoLiquid];
        economizer |= row[0] == ws.captions[kv::Cap::KindEconomizerHx];
        partLoad |= row[5] == ws.captions[kv::Cap::LinePartLoad];
    }
    EXPECT_TRUE(ecoBranch);
    EXPECT_TRUE(economizer);
    EXPECT_EQ(partLoad, ws.project.PartLoadPercent < 100);
    // The bypass line gets its tees: out of the discharge, into the injection.
    const kv::ListFile fittings = Read(kv::lists::kFittings);
    int tees = 0;
    for (const auto& row : fittings.rows) tees += row[1].rfind(ws.captions[kv::Cap::Tee] + " ", 0) == 0;
    EXPECT_GE(tees, 2);

    Calculate("Brine_R410A.prj");
    ws.project.AnlagenTyp = "SOLE";
    EXPECT_EQ(kv::KindListCaption(ws, 0), ws.captions[kv::Cap::BrineKindPump]);
    EXPECT_EQ(kv::KindListCaption(ws, 6), ws.captions[kv::Cap::KindBallValve]);
}

TEST_F(Lists, CalculationListsAndTheFittingsAppend) {
    Calculate("AirWater_R290.prj");
    const kv::ListFile pipes = Read(kv::lists::kPipes);
    ASSERT_EQ(pipes.header.size(), 4u);
    ASSERT_FALSE(pipes.rows.empty());
    // The suction line: length, pipe size of the table, insulation, clamps every 3 m.
    const auto& suction = *std::find_if(pipes.rows.begin(), pipes.rows.end(), [&](const auto& r) {
        return r[0] == ws.captions[kv::Cap::LineSuction];
    });
    const double length = kv::ToNumber(ws.project.Geometr.Cell(kv::Suction, kv::GeoLength));
    EXPECT_EQ(kv::ToNumber(suction[1]), length);
    EXPECT_EQ(suction[2], ws.pipes.Name(ws.cycle.lineRow[kv::Suction]));
    EXPECT_FALSE(suction[3].empty());
    EXPECT_EQ(suction[4], std::to_string(static_cast<int>(length / 3)));

    // The fittings list is appended by each Calculate and gets one header.
    const std::size_t first = Read(kv::lists::kFittings).rows.size();
    kv::WriteCalculationLists(ws, true);
    const kv::ListFile twice = Read(kv::lists::kFittings);
    EXPECT_EQ(twice.rows.size(), 2 * first);
    EXPECT_EQ(twice.header[3], ws.project.AnlagenTyp);

    // The line sizes in the order the generation reads them.
    const kv::LineSizeFile sizes = kv::ReadLineSizeFile(ws);
    EXPECT_EQ(sizes.size[kv::Suction], suction[2]);
    EXPECT_NEAR(sizes.velocity[kv::Suction], ws.cycle.lineVelocity[kv::Suction], 0.01);
}

// A list of the old layout, written here item by item: header, rows with
// line breaks inside, a last row cut short.
TEST(ListFiles, ReadByItemCount) {
    const std::string text =
        "\"Plant\",\"Description\",\"24.11.2026\",\"KOMP\"\r\n"
        "\"Suction line\",\"6\",\"22 x 1\",\"19\",\"2\"\r\n"
        "\"Liquid line\",\"4\"\r\n\"12 x 1\",\"\",\"1\"\r\n"
        "\"Bend\",\"3\"\r\n";
    const kv::ListFile f = kv::ParseListText(text, 4, 5);
    ASSERT_EQ(f.rows.size(), 3u);
    EXPECT_EQ(f.rows[1][2], "12 x 1");  // a line break is a comma to the reader
    EXPECT_EQ(f.rows[2][1], "3");
    EXPECT_EQ(f.rows[2][4], "");        // cut short, filled empty
    EXPECT_TRUE(kv::ParseListText("", 14, 9).rows.empty());

    // A change block rewritten by the screen has 24 items: read with 25, the
    // second block starts one item late, as the old system did.
    std::string blocks;
    for (int b = 0; b < 2; ++b)
        for (int i = 1; i <= 24; ++i) blocks += "\"" + std::to_string(100 * (b + 1) + i) + "\"\r\n";
    const auto read = kv::ParseListText(blocks, 0, 25).rows;
    ASSERT_EQ(read.size(), 2u);
    EXPECT_EQ(read[0][24], "201");
    EXPECT_EQ(read[1][0], "202");

    EXPECT_EQ(kv::PressureOfChangeItem("Suction$§$28$§$x"), "28$§$x");
    EXPECT_EQ(kv::PressureOfChangeItem("Suction"), "");
    EXPECT_EQ(kv::SplitReference("#AV 300/0012"), (std::array<std::string, 2>{"AV 300", "0012"}));
    EXPECT_EQ(kv::SplitReference("#77\\12345"), (std::array<std::string, 2>{"77", "1234"}));
    EXPECT_EQ(kv::SplitReference("#5"), (std::array<std::string, 2>{"5", ""}));
}

TEST_F(Lists, CompanionsTravelWithTheProject) {
    Calculate("Brine_R410A.prj");
    kv::GenerateLists(ws);
    const std::string parts = kv::ReadWholeFile(kv::ResolveName(ws, kv::lists::kParts));
    const std::string dir = (ws.DataDir() / "own").string() + "/";
    std::filesystem::create_directories(dir);
    ws.project.ProjektDatei = "Mine.prj";
    ASSERT_EQ(kv::SaveProject(ws, ws.project.AnlagenTyp, dir), kv::SaveResult::Saved);
    kv::DeleteFile(ws, kv::lists::kParts);
    std::string type = "HeatP";
    ASSERT_TRUE(kv::LoadProject(ws, type, dir + "Mine.prj", dir));
    EXPECT_EQ(kv::ReadWholeFile(kv::ResolveName(ws, kv::lists::kParts)), parts);
}

// The samples whose plants the factory catalogues serve yield lists in
// which no main unit is the empty article. (The large ammonia chiller, the
// economizer plant and the inch sample need compressors and heat exchangers
// beyond the factory series.)
TEST_F(Lists, SamplesYieldTheirComponents) {
    for (const char* sample : {"AirWater_R290.prj", "Brine_R410A.prj", "Transcritical_CO2.prj"}) {
        SCOPED_TRACE(sample);
        Calculate(sample);
        const kv::ListGeneration g = kv::GenerateLists(ws);
        EXPECT_TRUE(g.ok);
        EXPECT_GE(g.unitRows, 4);
        for (const auto& r : g.results)
            if (!r.skipped && kv::IsListedMainUnit(r.listRow[0].empty() ? 0 : std::atoi(r.listRow[0].c_str())))
                EXPECT_NE(r.taken, 0) << r.message;
    }
}

}  // namespace

namespace {

// The screen's reader and writer on files written here from the layouts.
TEST_F(Lists, ScreenReadsAndWritesByTheListRules) {
    // Flansh.DAT: items 1 to 6 in grid columns 1, 2, 3, 5, 6, 4; a row with
    // zero numbers ends the write.
    kv::WriteFileAtomic(kv::ResolveName(ws, kv::lists::kFittings),
                        "\"P\",\"D\",\"01.01.2026\",\"KOMP\"\r\n"
                        "\"Liquid line\",\"Reducer 35-28\",\"28 x 1\",\"35\",\"28\",\"2\",\"\"\r\n"
                        "\"Liquid line\",\"Tee 28\",\"28 x 1\",\"0\",\"0\",\"0\",\"\"\r\n"
                        "\"Suction line\",\"Tee 42\",\"42 x 1.5\",\"42\",\"0\",\"1\",\"\"\r\n");
    kv::ListScreen s;
    ASSERT_TRUE(kv::OpenList(ws, s, kv::lists::kFittings));
    ASSERT_EQ(s.grid.size(), 3u);
    EXPECT_EQ(s.grid[0][3], "2");   // the quantity in column 4
    EXPECT_EQ(s.grid[0][4], "35");
    ASSERT_TRUE(kv::SaveList(ws, s));
    kv::ListFile f = Read(kv::lists::kFittings);
    ASSERT_EQ(f.rows.size(), 1u);   // the zero row ended the write
    EXPECT_EQ(f.rows[0][5], "2");
    EXPECT_EQ(f.rows[0][6], "");

    // A parts list whose change file the screen wrote (24 items a block):
    // read with 25 items, each following block starts one item later.
    std::string parts = "\"P\",\"D\",\"R\",\"KOMP\",\"100\",\"\",\"\",\"5\",\"263\",\"0\",\"0\",\"0\",\"318\",\"R134a\"\r\n";
    std::string change;
    for (int r = 0; r < 2; ++r) {
        parts += "\"Ball valve\",\"BKV " + std::to_string(r) + "\",\"m\",\"AV\",\"10\",\"Suction line\",\"22 x 1\",\"1\",\"9\"\r\n";
        for (int i = 1; i <= 24; ++i) change += "\"" + std::to_string(10 * r + i) + "\"\r\n";
    }
    kv::WriteFileAtomic(kv::ResolveName(ws, kv::lists::kParts), parts);
    kv::WriteFileAtomic(kv::ResolveName(ws, kv::lists::kPartsChange), change);
    ASSERT_TRUE(kv::OpenList(ws, s, kv::lists::kParts));
    ASSERT_EQ(s.grid.size(), 2u);
    EXPECT_EQ(s.grid[0][0], "1");                // quantity first
    EXPECT_EQ(s.grid[0][1], "Ball valve");
    EXPECT_EQ(s.grid[0][kv::kFirstChangeColumn - 1 + 24], "11");  // item 25 is the next block's first
    EXPECT_EQ(s.grid[1][kv::kFirstChangeColumn - 1], "12");
    // An unknown list is refused without touching a file.
    kv::ListScreen other;
    other.file = "Other.DAT";
    EXPECT_FALSE(kv::SaveList(ws, other));
}

}  // namespace

namespace {

// A connection named in inches is given in mm by the inch series; a metric
// size name by its own series; anything else stands.
TEST_F(Lists, ConnectionsInMillimetres) {
    Calculate("AirWater_R290.prj");
    kv::PipeTable inch;
    ASSERT_GT(kv::LoadPipeTable(ws, "RohrIN.DAT", inch, false), 0);
    EXPECT_EQ(kv::ConnectionMillimetres(ws, inch, "5/8'"), "15.88");
    EXPECT_EQ(kv::ConnectionMillimetres(ws, inch, " 1/2\""), "12.7");
    EXPECT_EQ(kv::ConnectionMillimetres(ws, inch, "22 x 1"), "22");
    EXPECT_EQ(kv::ConnectionMillimetres(ws, inch, "12X18"), "12X18");
    EXPECT_EQ(kv::ConnectionMillimetres(ws, inch, "9/9'"), "9/9'");
}

}  // namespace

namespace {

// The screen's item-wise copy: six pairs, each item a record of its own,
// an empty source skipped.
TEST_F(Lists, ItemwiseCopyOfTheSixPairs) {
    Calculate("AirWater_R290.prj");
    ASSERT_TRUE(kv::GenerateLists(ws).ok);
    kv::WriteFileAtomic(kv::ResolveName(ws, kv::lists::kFittings), "");
    const std::string dir = (ws.DataDir() / "stored").string();
    std::filesystem::create_directories(dir);
    EXPECT_EQ(kv::CopyListsItemwise(ws, "Plant.prj", dir, true), 5);  // the empty fittings list is skipped
    const std::string out = kv::ReadWholeFile(std::filesystem::path(dir) / "Plant.vlt");
    EXPECT_EQ(out.find("\",\""), std::string::npos);  // no two items on one line
    const auto parts = Read(kv::lists::kParts);
    kv::DeleteFile(ws, kv::lists::kParts);
    EXPECT_EQ(kv::CopyListsItemwise(ws, "Plant.prj", dir, false), 5);
    EXPECT_EQ(Read(kv::lists::kParts).rows, parts.rows);
}

}  // namespace
