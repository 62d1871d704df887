#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "refrigerant/registry.h"
#include "refrigerant/saturation.h"
#include "shell/files.h"
#include "workspace_fixture.h"

namespace fs = std::filesystem;

using SaturationRows = kvtest::WorkspaceTest;

namespace {
// Three rows of a made-up fluid: t, pDew, pBubble, hLiq, hVap, rhoLiq, rhoVap.
const char* kTable =
    "253.15,1.0,1.2,180,390,1300.555,5.125\r\n"
    "258.15,1.3,1.5,186,392,1290.009,12.349\r\n"
    "263.15,1.6,1.9,192,394,1280,16\r\n";
}  // namespace

TEST_F(SaturationRows, RowsAroundTheKeyAndTheirInterpolation) {
    Put("R134A.DAT", kTable);
    ws.project.KaelteM = "R134a";
    int rows = 0;
    ASSERT_TRUE(kv::ReadSaturationRows(ws, 255.65, rows, kv::ByTemperature));
    EXPECT_EQ(rows, 28);
    EXPECT_EQ(ws.cycle.lowRow.t, 253.15);
    EXPECT_EQ(ws.cycle.highRow.t, 258.15);
    EXPECT_NEAR(kv::InterpolateRows(ws.cycle, 5, 255.65), 391, 1e-9);
    EXPECT_NEAR(kv::RowFraction(ws.cycle, 255.65), 0.5, 1e-12);
    // Densities are cut to two decimals, never rounded.
    EXPECT_DOUBLE_EQ(ws.cycle.highRow.rhoVap, 12.34);
    EXPECT_DOUBLE_EQ(ws.cycle.lowRow.rhoLiq, 1300.55);
    // A key on a row takes that row as the high one.
    kv::ReadSaturationRows(ws, 258.15, rows, kv::ByTemperature);
    EXPECT_EQ(ws.cycle.highRow.t, 258.15);
    EXPECT_EQ(ws.cycle.lowRow.t, 253.15);
    // Read to the physical end: the flags are cleared.
    EXPECT_FALSE(ws.cycle.highFound);
}

TEST_F(SaturationRows, KeysOutsideTheTableLeaveStaleRows) {
    Put("R134A.DAT", kTable);
    ws.project.KaelteM = "R134a";
    int rows = 0;
    kv::ReadSaturationRows(ws, 260, rows, kv::ByTemperature);
    ASSERT_EQ(ws.cycle.lowRow.t, 258.15);
    kv::ReadSaturationRows(ws, 200, rows, kv::ByTemperature);  // below the first row
    EXPECT_EQ(ws.cycle.highRow.t, 253.15);
    EXPECT_EQ(ws.cycle.lowRow.t, 258.15);  // as the previous look-up left it
    kv::ReadSaturationRows(ws, 300, rows, kv::ByTemperature);  // above the last row
    EXPECT_EQ(ws.cycle.lowRow.t, 263.15);
    EXPECT_EQ(ws.cycle.highRow.t, 253.15);
}

TEST_F(SaturationRows, PressureModesSwapTheKeyColumn) {
    Put("R134A.DAT", kTable);
    ws.project.KaelteM = "R134a";
    int rows = 0;
    kv::ReadSaturationRows(ws, 1.45, rows, kv::ByDewPressure);
    EXPECT_EQ(ws.cycle.lowRow.t, 1.3);        // the dew pressure in the key slot
    EXPECT_EQ(ws.cycle.lowRow.pDew, 258.15);  // the row's temperature
    EXPECT_DOUBLE_EQ(kv::InterpolateRows(ws.cycle, 2, 1.45), 260.65);
    kv::ReadSaturationRows(ws, 1.5, rows, kv::ByBubblePressure);
    EXPECT_EQ(ws.cycle.highRow.t, 1.5);
    EXPECT_EQ(ws.cycle.highRow.pBubble, 258.15);
    EXPECT_EQ(ws.cycle.highRow.pDew, 1.3);

    ws.cycle.rowsFound = 0;
    kv::ReadSaturationRows(ws, 0, rows, kv::ResolveOnly);
    EXPECT_EQ(ws.cycle.rowsFound, 28);
}

TEST_F(SaturationRows, FileQuirksTerminatorAndMissingTables) {
    // R23: specific volumes in dm³/kg; a terminator row ends the table whatever field 2 holds.
    Put("R23.DAT", "200,1,1,100,300,2.5,300\r\n210,2,2,110,305,2.4,200\r\n0,5,0,0,0,0,0\r\n220,9,9,9,9,9,9\r\n");
    ws.project.KaelteM = "R23";
    int rows = 0;
    kv::ReadSaturationRows(ws, 205, rows, kv::ByTemperature);
    EXPECT_DOUBLE_EQ(ws.cycle.lowRow.rhoLiq, 400.0);
    EXPECT_DOUBLE_EQ(ws.cycle.lowRow.rhoVap, 3.33);
    kv::ReadSaturationRows(ws, 215, rows, kv::ByTemperature);
    EXPECT_EQ(ws.cycle.lowRow.t, 210);  // the row behind the terminator is never read
    // A terminated table keeps the flags the scan set.
    kv::ReadSaturationRows(ws, 205, rows, kv::ByTemperature);
    EXPECT_TRUE(ws.cycle.highFound);

    // R123: degrees C in field 1; blanks as separators.
    Put("R123.DAT", "0 0.3 0.3 200 380 1500 2\r\n5 0.4 0.4 204 382 1490 2.5\r\n");
    ws.project.KaelteM = "R123";
    kv::ReadSaturationRows(ws, 275, rows, kv::ByTemperature);
    EXPECT_DOUBLE_EQ(ws.cycle.lowRow.t, 273.15);
    EXPECT_DOUBLE_EQ(ws.cycle.highRow.t, 278.15);

    ws.project.KaelteM = "R410A";  // no file in this data directory
    EXPECT_FALSE(kv::ReadSaturationRows(ws, 250, rows, kv::ByTemperature));
    ws.project.KaelteM = "R999";  // no table at all
    EXPECT_FALSE(kv::ReadSaturationRows(ws, 250, rows, kv::ByTemperature));
    EXPECT_EQ(rows, 0);
}

TEST_F(SaturationRows, EditedTableIsSeenInTheNextRound) {
    Put("r134a.dat", kTable);  // another case of the file name
    ws.project.KaelteM = "R134a";
    int rows = 0;
    kv::ReadSaturationRows(ws, 255, rows, kv::ByTemperature);
    EXPECT_EQ(ws.cycle.lowRow.hLiq, 180);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    Put("r134a.dat", "253.15,1.0,1.2,170,390,1300,5\r\n258.15,1.3,1.5,186,392,1290,12\r\n");
    // Within one calculation the parsed rows stand; the next one asks the disk.
    kv::ReadSaturationRows(ws, 255, rows, kv::ByTemperature);
    EXPECT_EQ(ws.cycle.lowRow.hLiq, 180);
    ws.properties.LookAgain();
    kv::ReadSaturationRows(ws, 255, rows, kv::ByTemperature);
    EXPECT_EQ(ws.cycle.lowRow.hLiq, 170);
    for (const std::string& bad : kvtest::DamagedContents(kTable)) {
        Put("r134a.dat", bad);
        ws.properties.Clear();
        kv::ReadSaturationRows(ws, 255, rows, kv::ByTemperature);
    }
}

// Every table the registry names is shipped and physically sound.
TEST(FactoryTables, EveryRegistryTableIsPhysicallySound) {
    const fs::path data = KELVARIS_FACTORY_DATA;
    std::set<std::string> files;
    for (const std::string& name : kv::RefrigerantListFull())
        if (auto info = kv::LookupRefrigerantTable(name)) files.insert(info->file);
    EXPECT_GE(files.size(), 60u);
    for (const std::string& file : files) {
        const fs::path path = kv::ResolveName(data, file);
        const kv::SaturationTable t = kv::ParseSaturationTable(kv::ReadWholeFile(path), file);
        ASSERT_GE(t.rows.size(), 10u) << file;
        for (std::size_t i = 0; i < t.rows.size(); ++i) {
            const kv::SatRow& r = t.rows[i];
            EXPECT_GT(r.hVap, r.hLiq) << file << " row " << i;
            EXPECT_GT(r.rhoLiq, r.rhoVap) << file << " row " << i;
            EXPECT_GE(r.pBubble, r.pDew) << file << " row " << i;
            if (i == 0) continue;
            const kv::SatRow& p = t.rows[i - 1];
            EXPECT_GT(r.t, p.t) << file << " row " << i;
            EXPECT_GT(r.pDew, p.pDew) << file << " row " << i;
            EXPECT_GT(r.pBubble, p.pBubble) << file << " row " << i;
            EXPECT_LT(r.hVap - r.hLiq, p.hVap - p.hLiq) << file << " latent heat, row " << i;
        }
    }
}
