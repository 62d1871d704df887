#include <gtest/gtest.h>

#include <set>

#include "project/project.h"
#include "refrigerant/registry.h"
#include "shell/files.h"
#include "workspace_fixture.h"

namespace {

kv::Project Normalized(const std::string& name, double tminBefore = 99) {
    kv::Project p;
    p.KaelteM = name;
    p.tmin = tminBefore;
    p.tmax = 0;
    kv::NormalizeRefrigerantName(p);
    return p;
}

}  // namespace

TEST(Registry, AmmoniaSpellingsTakeTwoBranches) {
    const kv::Project a = Normalized("  AMMONIAK ");
    EXPECT_EQ(a.KaelteM, "AMMONIAK");
    EXPECT_EQ(a.tmax, 100);
    EXPECT_EQ(a.tmin, 99);  // left alone
    const kv::Project r717 = Normalized("R717");
    EXPECT_EQ(r717.KaelteM, "R717");
    EXPECT_EQ(r717.tmax, 100);
    for (const char* n : {"NH3", "Nh3", "nH3", "R 717", "r717"}) {
        const kv::Project p = Normalized(n);
        EXPECT_EQ(p.KaelteM, "R717") << n;
        EXPECT_EQ(p.tmin, -70) << n;
        EXPECT_EQ(p.tmax, 65) << n;
    }
    const kv::Project lower = Normalized("nh3");  // in no list
    EXPECT_EQ(lower.KaelteM, "nh3");
    EXPECT_EQ(lower.tmax, 65);
    EXPECT_EQ(lower.tmin, 99);
}

TEST(Registry, CanonicalNamesAndTypedSpellings) {
    struct Case { const char* in; const char* out; int tmin, tmax; };
    const Case cases[] = {
        {"r134a", "R134a", -60, 85},       {"R 404a", "R404A", -60, 65},   {"r 32", "R32", -50, 65},
        {"PROPAN", "R290", -70, 85},       {"R600A", "R600a", -40, 105},   {"HFO 1234yF", "HFO1234YF", -30, 80},
        {"R1234Ze", "HFO1234ZE", -30, 75}, {"R471a", "R471A", -60, 85},    {"ISC_69L", "R403B", -55, 65},
        {"AC9000", "AC9000", -50, 65},     {"R1150", "R1150", -110, 0},    {"ETHYLEN", "ETHYLEN", -110, 0},
        {"METHAN", "R50", -160, -95},      {"Co 2", "CO2", -55, 55},       {"r 744", "R744", -55, 55},
        {"R437A", "R437A", -40, 80},       {"R13", "R13", -90, 25},        {"R 13B1", "R13B1", -60, 65},
    };
    for (const Case& c : cases) {
        const kv::Project p = Normalized(c.in);
        EXPECT_EQ(p.KaelteM, c.out) << c.in;
        EXPECT_EQ(p.tmin, c.tmin) << c.in;
        EXPECT_EQ(p.tmax, c.tmax) << c.in;
    }
    // The lower-case R134a spellings of the R471A row never reach it.
    EXPECT_EQ(Normalized("r 134A").KaelteM, "R134a");
    // Unknown: left as typed, tmax 65, tmin standing.
    const kv::Project u = Normalized(" R999 ", -12);
    EXPECT_EQ(u.KaelteM, "R999");
    EXPECT_EQ(u.tmax, 65);
    EXPECT_EQ(u.tmin, -12);
}

TEST(Registry, TableResolutionAndNameRepairs) {
    kv::Project p;
    std::string file = "previous";
    p.KaelteM = "r134a";
    kv::NormalizeRefrigerantName(p);
    EXPECT_EQ(kv::ResolveRefrigerantTable(p, file), 28);
    EXPECT_EQ(file, "R134A.DAT");
    EXPECT_EQ(p.Gwp, 1430);

    p.KaelteM = "R403B";
    kv::ResolveRefrigerantTable(p, file);
    EXPECT_EQ(file, "ISC_69L.DAT");
    p.KaelteM = "AC9000";
    kv::ResolveRefrigerantTable(p, file);
    EXPECT_EQ(file, "R407C.DAT");
    EXPECT_EQ(p.KaelteM, "AC9000");
    p.KaelteM = "R290";
    kv::ResolveRefrigerantTable(p, file);
    EXPECT_EQ(file, "PROPAN.DAT");
    p.KaelteM = "r32";
    kv::ResolveRefrigerantTable(p, file);
    EXPECT_EQ(file, "R32.dat");  // the one lower-case file name
    p.KaelteM = "ethan";
    kv::ResolveRefrigerantTable(p, file);
    EXPECT_EQ(p.KaelteM, "R170");  // repaired

    p.Gwp = 77;
    file = "kept";
    p.KaelteM = "R407B";  // accepted, but without a table
    EXPECT_EQ(kv::ResolveRefrigerantTable(p, file), 0);
    EXPECT_EQ(file, "kept");
    EXPECT_EQ(p.Gwp, 77);
}

TEST(Registry, CharacteristicsCompareExactly) {
    EXPECT_EQ(kv::RefrigerantCharacteristic("R134a", 1), 5.34);
    EXPECT_EQ(kv::RefrigerantCharacteristic("R134A", 4), 138);
    EXPECT_EQ(kv::RefrigerantCharacteristic("r134a", 1), 4.35);  // not in the table
    EXPECT_EQ(kv::RefrigerantCharacteristic("r134a", 2), 0.9);
    EXPECT_EQ(kv::RefrigerantCharacteristic("r134a", 3), 0);
    EXPECT_EQ(kv::RefrigerantCharacteristic("R744", 1), 2.68);
    EXPECT_EQ(kv::RefrigerantCharacteristic("anything", 5), 0.01);
    EXPECT_EQ(kv::RefrigerantCharacteristic("R744", 6), 0);
}

TEST(Registry, ListsAndGroupFactors) {
    const auto& project = kv::RefrigerantListForProject();
    const auto& full = kv::RefrigerantListFull();
    EXPECT_EQ(project.size(), 60u);
    EXPECT_EQ(full.size(), project.size() + 16);
    EXPECT_EQ(std::set<std::string>(full.begin(), full.end()).size(), full.size());
    const auto at = [&](const char* n) { return std::find(full.begin(), full.end(), n) - full.begin(); };
    EXPECT_EQ(at("ETHAN"), at("PROPYLEN") + 1);
    EXPECT_EQ(at("R1150") + 1, at("R1270"));
    EXPECT_EQ(at("R471A"), at("R452A") + 5);
    for (const std::string& n : full) EXPECT_TRUE(kv::IsRefrigerantKnown(n)) << n;

    EXPECT_DOUBLE_EQ(kv::CapacityFactorByGroup("propan", 318.15), 1.12);
    EXPECT_DOUBLE_EQ(kv::CapacityFactorByGroup("R404A", 273.15), 1.02 * 1.1);
    // "Ammoniak" in mixed case never matches: AMMONIAK takes the last rule.
    EXPECT_DOUBLE_EQ(kv::EvaporatorFactorByGroup("R717", 300, 0, 0, 0, false), 1.35 / 1.15 * 1.12);
    EXPECT_DOUBLE_EQ(kv::EvaporatorFactorByGroup("AMMONIAK", 300, 0, 0, 0, false), 1.35 / 1.15);
    EXPECT_DOUBLE_EQ(kv::EvaporatorFactorByGroup("R744", 273.15, 0, 23, 1, false), 1.15 / 1.35 * 1.18);
    EXPECT_DOUBLE_EQ(kv::EvaporatorFactorByGroup("R134a", 243.15, 0, 0, 0, false), 1 / 1.15 * (1 + 20.0 / 300));
    EXPECT_LT(kv::EvaporatorFactorByGroup("R22", 243.15, 0, 0, 0, true),
              kv::EvaporatorFactorByGroup("R22", 243.15, 0, 0, 0, false));
}

using RegistryRefusal = kvtest::WorkspaceTest;

TEST_F(RegistryRefusal, UnknownFluidIsRefusedWithTheLanguageText) {
    Put("Caption.ENG", "");
    Put("ENG.dat", "Refrigerant\r\nline 2\r\nline 3\r\n");
    ws.settings.Sprache = "ENG";
    EXPECT_EQ(kv::CheckRefrigerantAvailable(ws, "R407B"), 0);
    EXPECT_EQ(kv::CheckRefrigerantAvailable(ws, "r134a"), 0);
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(kv::CheckRefrigerantAvailable(ws, "R999"), 1);
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].text.rfind("Refrigerant\r\nline 2\r\nline 3\r\n\r\n", 0), 0u);
    EXPECT_NE(messages[0].text.find("R999"), std::string::npos);
}
