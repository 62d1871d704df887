#include <gtest/gtest.h>

#include <cmath>

#include "catalogue/selection.h"
#include "refrigerant/registry.h"
#include "shell/files.h"
#include "workspace_fixture.h"

namespace {

using kvtest::WorkspaceTest;

// Field offsets of the record layout, written out from the layout table.
constexpr int kOffsets[19] = {0, 40, 45, 60, 72, 112, 115, 117, 123, 128, 133, 137, 143, 149, 154, 159, 165, 170, 175};

std::string Record(std::initializer_list<std::pair<int, std::string>> texts) {
    std::string r(570, ' ');
    for (const auto& [no, text] : texts) r.replace(static_cast<std::size_t>(kOffsets[no - 1]), text.size(), text);
    return r;
}

kv::Article Art(std::initializer_list<std::pair<int, std::string>> texts) { return kv::DecodeArticle(Record(texts)); }

kv::PlantDuty Plant() {
    kv::PlantDuty d;
    d.fluid = "R134a";
    d.plantType = "HEATP";
    d.pCond = 15;
    d.pEvap = 3;
    d.tEvapK = 263.15;
    d.tCondK = 318.15;
    d.massFlow = 0.05;
    d.charB = 0.9;
    d.charC = 4;
    d.charD = 200;
    d.charE = 0.01;
    d.designPressureRatio = 4.35;
    d.dtVerd = "6";
    d.dtKond = "5";
    return d;
}

kv::SelectRequest Req(int kind, double first, double second) {
    kv::SelectRequest q;
    q.kind = kind;
    q.first = first;
    q.second = second;
    q.lineName = "Liquid";
    q.lineSize = "28";
    return q;
}

TEST(SelectionRating, ValveDefaultRule) {
    const kv::PlantDuty d = Plant();
    const kv::SelectRequest q = Req(4, 0.1, 1000);
    // kv 3.6: drop 10 mbar, below the minimum of 50: refused after row 1.
    const kv::Article small = Art({{1, "SG 1"}, {2, "3.6"}, {4, "12"}, {17, "500"}, {18, "50"}});
    kv::RatedRow r = kv::RateRow(d, q, small, 2);
    EXPECT_NEAR(r.kvNeeded, 1.60, 1e-9);
    EXPECT_NEAR(r.drop, 10.0, 1e-9);
    EXPECT_NEAR(r.share, 223.607, 1e-3);
    EXPECT_FALSE(r.passes);
    EXPECT_TRUE(kv::RateRow(d, q, small, 1).passes);
    // kv 1.2: drop 90 mbar, share 74.5 %.
    const kv::Article mid = Art({{1, "SG 2"}, {2, "1.2"}, {4, "12"}, {17, "500"}, {18, "50"}});
    r = kv::RateRow(d, q, mid, 2);
    EXPECT_NEAR(r.drop, 90.0, 1e-9);
    EXPECT_NEAR(r.share, 74.536, 1e-3);
    EXPECT_TRUE(r.passes);
    kv::PlantDuty half = d;
    half.partLoad = 50;
    EXPECT_FALSE(kv::RateRow(half, q, mid, 2).passes);
    EXPECT_TRUE(kv::RateRow(half, Req(5, 0.1, 1000), mid, 2).passes) << "the liquid line valve takes 100 %";
    // R1 = 0: rated by drop alone, passes only as the first row.
    const kv::Article noMax = Art({{1, "SG 3"}, {2, "1.2"}, {4, "12"}, {18, "50"}});
    EXPECT_TRUE(kv::RateRow(d, q, noMax, 1).passes);
    EXPECT_FALSE(kv::RateRow(d, q, noMax, 2).passes);
    // Zero and unreadable ratings give finite zeros.
    const kv::Article blank = Art({{1, "SG 4"}, {2, "x"}, {17, "?"}, {18, "0"}});
    r = kv::RateRow(d, Req(4, 0.1, 0), blank, 3);
    EXPECT_EQ(r.kvNeeded, 0);
    EXPECT_EQ(r.drop, 0);
    EXPECT_EQ(r.share, 0);
    EXPECT_FALSE(r.passes);
    // Brine plant: a connection not below the line passes at once.
    kv::PlantDuty brine = d;
    brine.brine = true;
    const kv::Article wide = Art({{1, "BV"}, {2, "3.6"}, {4, "28"}, {17, "5"}, {18, "50"}});
    EXPECT_TRUE(kv::RateRow(brine, q, wide, 3).passes);
}

TEST(SelectionRating, CompressorSweptVolume) {
    const kv::PlantDuty d = Plant();
    // 0.95 x 3600 x 0.1 / (20 x 0.8) = 21.375, shown 21.3.
    const kv::SelectRequest q = Req(12, 0.1, 20);
    kv::RatedRow r = kv::RateRow(d, q, Art({{1, "K1"}, {2, "21.3"}}), 1, 0.8);
    EXPECT_NEAR(r.requiredSweptVolume, 21.3, 1e-9);
    EXPECT_FALSE(r.passes);
    EXPECT_TRUE(kv::RateRow(d, q, Art({{1, "K2"}, {2, "25"}}), 2, 0.8).passes);
    // No density, no efficiency: nothing divides by zero.
    r = kv::RateRow(d, Req(12, 0.1, 0), Art({{1, "K3"}, {2, "25"}}), 1, 0);
    EXPECT_EQ(r.requiredSweptVolume, 0);
    EXPECT_FALSE(r.passes);
}

TEST(SelectionRating, EvaporatorsAndCondensers) {
    const kv::PlantDuty d = Plant();
    const double fe = kv::EvaporatorFactorByGroup("R134a", 263.15, 6, 13, 0, false);
    const double fc = kv::CapacityFactorByGroup("R134a", 318.15);
    // 10 kW at 8 K rated, 6 K design: 7.5 kW times the fluid factor.
    kv::RatedRow r = kv::RateRow(d, Req(13, 7.0, 0), Art({{1, "LU 10"}, {17, "10"}}), 1);
    EXPECT_NEAR(r.capacity, 7.5 * fe, 1e-9);
    // 30 kW at 15 K rated, 5 K design.
    r = kv::RateRow(d, Req(14, 9.0, 0), Art({{1, "KV 30"}, {17, "30"}}), 1);
    EXPECT_NEAR(r.capacity, 10 * fc, 1e-9);
    // A water-side unit: both factors 1, rated figure as it stands.
    r = kv::RateRow(d, Req(14, 9.0, 0), Art({{1, "wKV 30"}, {17, "30"}}), 1);
    EXPECT_NEAR(r.capacity, 30, 1e-9);
    // Kind 23, unit code other than 2: 14 K rated, 6.8 K, factor 1.
    r = kv::RateRow(d, Req(23, 6.7, 0), Art({{1, "EC 14"}, {7, "0"}, {17, "14"}}), 1);
    EXPECT_NEAR(r.capacity, 6.8, 1e-9);
    EXPECT_TRUE(r.passes);
    // An empty design difference takes the rated one.
    kv::PlantDuty blank = d;
    blank.dtVerd = "";
    r = kv::RateRow(blank, Req(13, 7.0, 0), Art({{1, "LU 10"}, {17, "10"}}), 1);
    EXPECT_NEAR(r.capacity, 10 * kv::EvaporatorFactorByGroup("R134a", 263.15, 8, 13, 0, false), 1e-9);
    // Duty cut to 0.05 kW, above 20 kW to whole kW; the duty must stay below.
    EXPECT_NEAR(kv::HeatExchangerDuty(7.47), 7.45, 1e-9);
    EXPECT_NEAR(kv::HeatExchangerDuty(23.7), 23, 1e-9);
    EXPECT_FALSE(kv::RateRow(d, Req(23, 6.8, 0), Art({{1, "EC 14"}, {17, "14"}}), 1).passes);
}

TEST(SelectionRating, ReceiverByCharge) {
    const kv::PlantDuty d = Plant();
    // 10 dm³ at 1000 kg/m³ filled to 0.9: 9 kg.
    const kv::Article a = Art({{1, "FS 10"}, {2, "10"}});
    kv::RatedRow r = kv::RateRow(d, Req(17, 9, 1000), a, 1);
    EXPECT_NEAR(r.capacity, 9, 1e-12);
    EXPECT_NEAR(r.neededVolume, 10, 1e-12);
    EXPECT_TRUE(r.passes) << "content equal to the charge passes";
    EXPECT_FALSE(kv::RateRow(d, Req(17, 9.01, 1000), a, 1).passes);
}

TEST(SelectionRating, ExpansionValveAndRegulators) {
    kv::PlantDuty d = Plant();
    // a = (12 / 4)^0.5, b = (10 / 200) / 0.05 = 1, 263.15 K takes the upper rule.
    const double a = std::sqrt(3.0), upper = 0.97 * a;
    const kv::SelectRequest q = Req(2, 10, 1000);
    kv::RatedRow r = kv::RateRow(d, q, Art({{1, "TX 5"}, {17, "5"}}), 1);
    EXPECT_NEAR(r.capacity, 4.5 * upper, 1e-9);
    EXPECT_FALSE(r.passes);
    EXPECT_TRUE(kv::RateRow(d, q, Art({{1, "TX 8"}, {17, "8"}}), 1).passes);
    // R2 filled: the project's fluid column, fluid factor 1.
    EXPECT_NEAR(kv::RateRow(d, q, Art({{1, "TX 6"}, {17, "8"}, {18, "6"}}), 1).capacity, 6 * upper, 1e-9);
    // Below 263.15 K: c = 1 - 0.01 x 10, for CO2 1 - 0.15 x 0.01 x 10.
    d.tEvapK = 253.15;
    EXPECT_NEAR(kv::RateRow(d, q, Art({{1, "TX 8"}, {17, "8"}}), 1).capacity, 7.2 * upper * 0.9, 1e-9);
    d.fluid = "CO2";
    EXPECT_NEAR(kv::RateRow(d, q, Art({{1, "TX 8"}, {17, "8"}}), 1).capacity, 7.2 * upper * 0.985, 1e-9);
    d = Plant();
    d.dpLiquid = 1200;  // 1.2 bar of 12: g = 0.9^0.25
    EXPECT_NEAR(kv::RateRow(d, q, Art({{1, "TX 8"}, {17, "8"}}), 1).capacity, 7.2 * upper * std::pow(0.9, 0.25), 1e-9);
    d.dpLiquid = 20000;  // more than the lift: g = 100
    EXPECT_NEAR(kv::RateRow(d, q, Art({{1, "TX 8"}, {17, "8"}}), 1).capacity, 7.2 * upper * 100, 1e-6);
    // Electronic valve: 75 % of the rating and the port velocity.
    d = Plant();
    r = kv::RateRow(d, Req(2, 0.05, 1000), Art({{1, "E2V 09"}, {4, "10X12"}, {17, "8"}}), 1);
    EXPECT_NEAR(r.velocity, std::floor(100.5 * 0.05 / (1000 * 3.1415 * 1e-4 / 4)) / 100, 1e-12);
    EXPECT_FALSE(std::isnan(r.capacity));
    // No characteristic numbers: factors 1, never inf.
    d.charC = 0;
    d.charD = 0;
    EXPECT_NEAR(kv::RateRow(d, q, Art({{1, "TX 8"}, {17, "8"}}), 1).capacity, 7.2 * 0.97, 1e-9);
    // Kinds 8, 9 and 10.
    d = Plant();
    EXPECT_NEAR(kv::RateRow(d, Req(8, 1, 0), Art({{17, "10"}}), 1).capacity, 9 * std::pow(0.87, 1.01), 1e-9);
    EXPECT_NEAR(kv::RateRow(d, Req(9, 1, 0), Art({{17, "10"}}), 1).capacity, 9 * std::pow(0.87, 0.15), 1e-9);
    EXPECT_NEAR(kv::RateRow(d, Req(10, 1, 0), Art({{17, "10"}}), 1).capacity, 9 * std::pow(1.5, 0.25), 1e-9);
    d.pEvap = 0;
    EXPECT_NEAR(kv::RateRow(d, Req(8, 1, 0), Art({{17, "10"}}), 1).capacity, 9, 1e-9);
}

TEST(SelectionTables, KindsSlotsAndParkPositions) {
    EXPECT_EQ(kv::KindSlot(5), 1);
    EXPECT_EQ(kv::KindSlot(0), 11);
    EXPECT_EQ(kv::KindSlot(12), 14);
    EXPECT_EQ(kv::KindSlot(33), 7);
    EXPECT_EQ(kv::KindSlot(17), 17);
    EXPECT_EQ(kv::ParkPosition(23), 1);
    EXPECT_EQ(kv::ParkPosition(12), 2);
    EXPECT_EQ(kv::ParkPosition(0), 2);
    EXPECT_EQ(kv::ParkPosition(14), 3);
    EXPECT_EQ(kv::ParkPosition(2), 3);
    EXPECT_EQ(kv::ParkPosition(17), 4);
    EXPECT_EQ(kv::DefaultConnection(12), "22/28");
    EXPECT_TRUE(kv::IsElectronicValve("AKVH 10"));
    EXPECT_FALSE(kv::IsElectronicValve("TX 2"));
}

class Selection : public WorkspaceTest {
protected:
    void SetUp() override {
        WorkspaceTest::SetUp();
        ws.project.KaelteM = "R134a";
        ws.project.AnlagenTyp = "HeatP";
        ws.cycle.pCond = 15;
        ws.cycle.pEvap = 3;
        ws.cycle.tEvapK = 263.15;
        ws.cycle.tCondK = 318.15;
        ws.cycle.massFlow = 0.05;
        // Valves of group 250 (records 252...) and receivers of group 800.
        std::string bytes(900 * 570, ' ');
        auto put = [&](long long no, const std::string& r) { bytes.replace(static_cast<std::size_t>(no - 1) * 570, 570, r); };
        put(252, Record({{1, "MV 1"}, {2, "3.6"}, {3, "MV-1"}, {4, "12"}, {17, "5"}, {18, "50"}}));
        put(253, Record({{1, "MV 2"}, {2, "1.2"}, {3, "MV-2"}, {4, "16"}, {17, "500"}, {18, "50"}}));
        put(254, Record({{1, "MV 3"}, {2, "0.6"}, {3, "MV-3"}, {4, "22"}, {17, "900"}, {18, "50"}}));
        put(2, Record({{1, "ST 1"}, {2, "3"}, {3, "ST-1"}, {4, "28"}, {17, "500"}}));
        put(52, Record({{1, "SH 1"}, {2, "2"}, {3, "SH-1"}, {4, "28"}, {17, "500"}}));
        put(802, Record({{1, "ONE"}, {2, "10"}, {3, "R-1"}, {4, "28"}}));
        Put("TESTVALN.rdm", bytes);
        std::string list;
        for (int slot = 1; slot <= 18; ++slot) {
            const int code = slot == 1 ? 250 : slot == 11 ? 0 : slot == 5 ? 50 : slot == 17 ? 800 : 150;
            const std::string file = slot == 3 ? "NOSUCHXN.rdm" : "TESTVALN.rdm";
            list += "\"K" + std::to_string(slot) + "\",\"" + file + "\"," + std::to_string(code + 2) + "\r\n";
        }
        Put("AddrNeu.LST", list);
    }
    kv::SelectionState st;
};

TEST_F(Selection, TakesTheFirstRowThatMeetsTheDuty) {
    kv::SelectRequest q = Req(5, 0.1, 1000);
    kv::SelectionResult r = kv::SelectComponent(ws, st, q);
    // Row 1 has 10 mbar against a maximum of 5; row 2 takes 90 mbar.
    ASSERT_EQ(r.rows.size(), 2u);
    EXPECT_EQ(r.taken, 253);
    EXPECT_NEAR(st.lastDrop, 90, 1e-9);
    EXPECT_EQ(r.listRow[3], "MV-2");
    // Nothing meets the duty: the empty article.
    q.first = 10;
    r = kv::SelectComponent(ws, st, q);
    EXPECT_EQ(r.taken, 0);
    EXPECT_EQ(r.listRow[1], " - ");
    EXPECT_EQ(st.lastDrop, 0);
    // Empty or "0" line size, flag 0, mode 113: nothing at all.
    for (const char* size : {"", "0", " "}) {
        q.lineSize = size;
        EXPECT_TRUE(kv::SelectComponent(ws, st, q).skipped);
    }
    q.lineSize = "28";
    st.mode = kv::SelectNothing;
    EXPECT_TRUE(kv::SelectComponent(ws, st, q).skipped);
    EXPECT_EQ(st.lastDrop, 0);
}

TEST_F(Selection, MissingCatalogueAndChargeSums) {
    // Kind 6 reads line 3, whose catalogue is missing.
    kv::SelectionResult r = kv::SelectComponent(ws, st, Req(6, 0.1, 1000));
    EXPECT_EQ(r.taken, 0);
    EXPECT_EQ(r.listRow[1], " - ");
    EXPECT_FALSE(r.message.empty());
    // Kind 0 (V 3) and kind 1 (V 2) at 1200 kg/m³.
    r = kv::SelectComponent(ws, st, Req(0, 0.001, 1200));
    EXPECT_EQ(r.taken, 2);
    r = kv::SelectComponent(ws, st, Req(1, 0.001, 1200));
    EXPECT_EQ(r.taken, 52);
    EXPECT_NEAR(st.chargeFirst, 3 * 1200 / 3000.0 + 2 * 1200 / 3000.0, 1e-12);
    EXPECT_NEAR(st.chargeSecond, 3 * 1200 / 3000.0 + 2 * 1200 / 2000.0, 1e-12);
    // Rating only leaves the sums alone; a series of one article fills one row.
    st.mode = kv::SelectRateOnly;
    r = kv::SelectComponent(ws, st, Req(17, 9, 1000));
    EXPECT_EQ(r.rows.size(), 1u);
    EXPECT_EQ(r.taken, 802);
    EXPECT_NEAR(st.chargeFirst, 2.0, 1e-12);
}

TEST_F(Selection, ParksStandInForTheSeries) {
    kv::SelectionResult r = kv::SelectComponent(ws, st, Req(5, 0.1, 1000));
    kv::ParkEntry e = kv::ParkEntryOf(r, Req(5, 0.1, 1000));
    e.row[1] = "PARKED";
    ASSERT_TRUE(kv::PutFittingsEntry(ws, e));
    ASSERT_TRUE(kv::PutFittingsEntry(ws, e));
    EXPECT_EQ(kv::ReadPark(ws, kv::kFittingsPark).size(), 1u) << "same kind and line replace";
    r = kv::SelectComponent(ws, st, Req(5, 0.1, 1000));
    EXPECT_TRUE(r.fromPark);
    EXPECT_EQ(r.listRow[1], "PARKED");
    kv::SelectRequest other = Req(5, 0.1, 1000);
    other.lineName = "Suction";
    EXPECT_FALSE(kv::SelectComponent(ws, st, other).fromPark);
    // A condenser parked at position 3; the entries before it stay blank.
    e.row[0] = "14";
    e.row[1] = "COND";
    ASSERT_TRUE(kv::PutParkEntry(ws, kv::kMainUnitPark, kv::ParkPosition(14), e));
    const auto park = kv::ReadPark(ws, kv::kMainUnitPark);
    ASSERT_EQ(park.size(), 3u);
    EXPECT_TRUE(park[0].row[0].empty());
    r = kv::SelectComponent(ws, st, Req(14, 10, 0));
    EXPECT_TRUE(r.fromPark);
    EXPECT_EQ(r.listRow[1], "COND");
    ASSERT_TRUE(kv::PutParkEntry(ws, kv::kMainUnitPark, 3, e));
    EXPECT_FALSE(Get("VDablage.dat").empty()) << "the old park went to its scratch copy";
    kv::ClearParks(ws);
    EXPECT_TRUE(kv::ReadPark(ws, kv::kMainUnitPark).empty());
    EXPECT_TRUE(kv::ReadPark(ws, kv::kFittingsPark).empty());
}

}  // namespace

#include "catalogue/selection_table.h"

namespace {

TEST(SelectionTable, EnergyClassBoundaries) {
    // Group 650: R = int(10 Q / P) / 10.
    EXPECT_EQ(kv::EnergyClass(650, Art({{17, "240"}, {18, "1"}})), "A++");
    EXPECT_EQ(kv::EnergyClass(650, Art({{17, "239.99"}, {18, "1"}})), "A+");
    EXPECT_EQ(kv::EnergyClass(650, Art({{17, "30"}, {18, "1"}})), "D");
    EXPECT_EQ(kv::EnergyClass(650, Art({{17, "29.9"}, {18, "1"}})), "E");
    EXPECT_EQ(kv::EnergyClass(650, Art({{17, "1"}, {18, "0"}})), "A++") << "no power counts as 0.001 kW";
    // Group 600: fin spacing 4.5 leaves the figure unscaled; Q / 1.23 / P.
    EXPECT_NEAR(kv::EnergyFigure(600, Art({{11, "4.5"}, {17, "55.35"}, {18, "1"}})), 45, 1e-9);
    EXPECT_EQ(kv::EnergyClass(600, Art({{11, "4.5"}, {17, "55.35"}, {18, "1"}})), "A++");
    EXPECT_EQ(kv::EnergyClass(600, Art({{11, "4.5"}, {17, "14.76"}, {18, "1"}})), "D");  // exactly 12
    EXPECT_EQ(kv::EnergyClass(600, Art({{11, "18"}, {17, "14.76"}, {18, "1"}})), "B");   // 12 x 2 = 24
    EXPECT_EQ(kv::EnergyClass(550, Art({{17, "10"}})), "");
}

TEST(SelectionTable, BandsInverterAndHeadings) {
    EXPECT_EQ(kv::BandOf(1.0, 1.0, false), kv::CapacityBand::Near);
    EXPECT_EQ(kv::BandOf(1.2, 1.0, false), kv::CapacityBand::Usable);
    EXPECT_EQ(kv::BandOf(1.3, 1.0, false), kv::CapacityBand::Other);
    EXPECT_EQ(kv::BandOf(1.4, 1.0, true), kv::CapacityBand::Near);
    EXPECT_EQ(kv::BandOf(4.9, 1.0, true), kv::CapacityBand::Usable);
    EXPECT_EQ(kv::BandOf(1.0, 1.0, true), kv::CapacityBand::Other);
    EXPECT_EQ(kv::BandOf(1.0, 0.0, false), kv::CapacityBand::Other);
    EXPECT_EQ(kv::BandColour(kv::CapacityBand::Usable), 14);
    const kv::InverterRating at50 = kv::InverterRech(21.37, 5, 21.37, 10, 50, 0);
    EXPECT_NEAR(at50.displacement, 21.37, 1e-12);
    EXPECT_NEAR(at50.capacity, 10, 1e-12);
    EXPECT_EQ(at50.label, " (50Hz)");
    const kv::InverterRating at70 = kv::InverterRech(20, 5, 20, 10, 70, 50);
    EXPECT_NEAR(at70.displacement, 28, 1e-12);
    EXPECT_NEAR(at70.power, 7, 1e-12);
    EXPECT_NEAR(at70.capacity, 7.14, 1e-12);
    EXPECT_EQ(kv::InverterRech(0, 5, 20, 10, 0, 50).capacity, 0);
    EXPECT_EQ(kv::QoMessage(1.5, 12.345), "Qo min = 1.5 kW, Qo max = 12.34 kW");
    EXPECT_EQ(kv::KopfZeile("kW")[1], " [kW]");
    EXPECT_EQ(kv::HeadVentTab().size(), 5u);
}

TEST_F(Selection, TableOfACondenserSeriesAndAdoption) {
    std::string bytes(700 * 570, ' ');
    auto put = [&](long long no, const std::string& r) { bytes.replace(static_cast<std::size_t>(no - 1) * 570, 570, r); };
    put(652, Record({{1, "KD 5"}, {2, "2"}, {3, "KD-5"}, {4, "22"}, {17, "15"}, {18, "0.1"}}));
    put(653, Record({{1, "KD 9"}, {2, "3"}, {3, "KD-9"}, {4, "28"}, {17, "30"}, {18, "0.1"}}));
    Put("TESTCNDN.rdm", bytes);
    ws.project.dtKond = "5";
    kv::TableDuty duty;
    duty.qDuty = 8;
    duty.qCond = 9;
    const kv::SelectionTable t = kv::BuildSelectionTable(ws, 652, "TESTCND", 652, duty);
    ASSERT_EQ(t.rows.size(), 2u);
    // 15 kW x 5 / 15 = 5, 30 x 1/3 = 10: the second meets 9 kW and is near.
    EXPECT_NEAR(t.rows[0].rated, 5, 1e-9);
    EXPECT_NEAR(t.rows[1].rated, 10, 1e-9);
    EXPECT_EQ(t.marked, 1);
    EXPECT_EQ(t.rows[1].colour, 10);
    EXPECT_EQ(t.rows[0].colour, 12);
    EXPECT_EQ(t.rows[1].energyClass, "A++");
    EXPECT_EQ(t.messageLine, "Qo min = 5 kW, Qo max = 10 kW");
    EXPECT_FALSE(kv::AdoptTableRow(ws, t, 2));
    ASSERT_TRUE(kv::AdoptTableRow(ws, t, 1));
    const auto park = kv::ReadPark(ws, kv::kMainUnitPark);
    ASSERT_EQ(park.size(), 3u);
    EXPECT_EQ(park[2].row[1], "KD 9");
    const std::string sheet = Get("BT_calc.DAT");
    EXPECT_NE(sheet.find("  pc /[bar a/psi a] : §$&15"), std::string::npos);
    EXPECT_NE(sheet.find("Eff_class§§§$$$A++"), std::string::npos);
    EXPECT_NE(sheet.find("Part_Pic"), std::string::npos);
    // A missing catalogue gives an empty table, not an error.
    EXPECT_TRUE(kv::BuildSelectionTable(ws, 652, "NOSUCHC", 652, duty).rows.empty());
}

}  // namespace

#include "catalogue/component_search.h"
#include "refrigerant/state_points.h"
#include "shell/numbers.h"
#include "cycle/kernel.h"
#include "sample_fixture.h"
#include "shell/startup.h"

namespace {

class Searches : public WorkspaceTest {
protected:
    void SetUp() override {
        WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
        kv::SchemeScreen scheme;
        ASSERT_TRUE(kvtest::OpenSampleScheme(ws, scheme, "AirWater_R290.prj"));
        ASSERT_TRUE(kv::CalculateCycle(ws, scheme, kv::FirstCalculation));
    }
};

TEST_F(Searches, CompressorsByCapacityReturnTheirSweptVolume) {
    const auto all = kv::SearchCompressors(ws, 0, 0, 0);
    ASSERT_GT(all.size(), 3u);
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_GT(all[i].capacity, 0);
        if (all[i].power > 0) EXPECT_NEAR(all[i].cop, kv::Cut(all[i].capacity / all[i].power, 2), 1e-12);
        if (i > 0) EXPECT_LE(all[i - 1].capacity, all[i].capacity);
    }
    const double lo = all[1].capacity, hi = all[2].capacity;
    const auto some = kv::SearchCompressors(ws, lo, hi, 0);
    ASSERT_FALSE(some.empty());
    for (const auto& c : some) EXPECT_TRUE(c.capacity >= lo && c.capacity <= hi);
    EXPECT_EQ(kv::CompressorSearchResult(some, -1), -1);
    EXPECT_EQ(kv::CompressorSearchResult(some, 0), some[0].sweptVolume);
    // The compressor rule by hand: V / 3600 x lambda x rho x dh.
    const kv::CycleState& c = ws.cycle;
    const double rho = c.rhoAfterDrop > 0 ? c.rhoAfterDrop : c.rhoSuction;
    const double lambda = kv::VolumetricEfficiency(ws, c.pCond, c.dpDischarge, c.pEvap, c.dpSuction, 20);
    EXPECT_NEAR(kv::CompressorCapacity(ws, 20), kv::Cut(20 / 3600.0 * lambda * rho * (c.hVapEvap - c.hLiqCond), 2),
                1e-12);
}

TEST_F(Searches, HeatExchangersMeetTheDutyAndTheChoiceIsKept) {
    const double duty = ws.cycle.Q0;
    const auto rows = kv::SearchHeatExchangers(ws, 600, duty);
    ASSERT_FALSE(rows.empty());
    for (const auto& r : rows) {
        EXPECT_GT(r.capacity, duty);
        EXPECT_LT(r.capacity, 5 * duty);
        EXPECT_FALSE(r.energyClass.empty());
    }
    EXPECT_TRUE(kv::SearchHeatExchangers(ws, 550, duty).empty());
    ASSERT_TRUE(kv::WriteChosenHeatExchanger(ws, 600, rows[0]));
    EXPECT_EQ(kv::ChosenHeatExchanger(ws), rows[0].type);
    std::size_t lines = 0;
    for (const std::string text = Get("hx_prj1.dat"); const char ch : text) lines += ch == '\n';
    EXPECT_EQ(lines, 6u);
}

}  // namespace

namespace {

TEST_F(Selection, ModesReselectAndStoredFigure) {
    // Mode 88: the row of the list is taken as it stands, without the test.
    st.mode = kv::SelectReselect;
    kv::SelectRequest q = Req(5, 0.1, 1000);
    q.catalogueFile = "TESTVALN.rdm";
    q.record = 252;
    kv::SelectionResult r = kv::SelectComponent(ws, st, q);
    EXPECT_EQ(r.position, 252);
    EXPECT_EQ(r.taken, 252);
    EXPECT_NEAR(st.lastDrop, 10, 1e-9);
    // Mode 44: the stored figure replaces the first value.
    st.mode = kv::SelectStored;
    st.storedFigure = 0.2;
    q.record = 253;
    r = kv::SelectComponent(ws, st, q);
    EXPECT_EQ(r.taken, 253);
    EXPECT_NEAR(st.lastDrop, 360, 1e-9);  // 90 mbar at 0.1 kg/s, four times at 0.2
}

}  // namespace
