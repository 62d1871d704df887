// The superheated-vapour table reader, on files the test writes from the
// layout: S,tm,p,tBubble,tDew,hLiq,hVap,sLiq,sVap,cpLiq and V,p,t,h,s,rho.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "refrigerant/superheat_table.h"
#include "shell/numbers.h"
#include "workspace_fixture.h"

namespace {

// Two saturation rows and three isobars on which h and s rise linearly with
// the superheat: every interpolation must give them back exactly.
std::string SmallTable() {
    std::string t = "# comment line\r\n";
    t += "S,-10.00,2.000,-10.000,-10.000,180.0,390.0,0.90,1.70,1.30\r\n";
    t += "S,-9.00,2.100,-9.000,-9.000,181.3,390.6,0.905,1.698,1.31\r\n";
    t += "S,40.00,10.000,40.000,40.000,250.0,420.0,1.20,1.68,1.50\r\n";
    const double ps[3] = {2.0, 5.0, 10.0};
    const double tDew[3] = {-10.0, 15.0, 40.0};
    for (int k = 0; k < 3; ++k)
        for (double sh : {0.0, 2.0, 5.0, 15.0, 30.0, 45.0, 60.0}) {
            const double h = 390 + 15 * k + 1.0 * sh, s = 1.70 - 0.01 * k + 0.003 * sh, rho = 10.0 * (k + 1);
            t += "V," + kv::NumberText(ps[k]) + "," + kv::NumberText(tDew[k] + sh) + "," + kv::NumberText(h) + "," +
                 kv::NumberText(s) + "," + kv::NumberText(rho) + "\r\n";
        }
    return t;
}

TEST(SuperheatTable, ReadsTheLayoutAndInterpolates) {
    const kv::SuperheatTable t = kv::ParseSuperheatTable(SmallTable());
    ASSERT_TRUE(t.present);
    EXPECT_EQ(t.sat.size(), 3u);
    ASSERT_EQ(t.isobars.size(), 3u);
    EXPECT_TRUE(t.isobars[2].fromDew);
    EXPECT_EQ(t.isobars[1].count, 7u);

    kv::SuperheatSatRow r;
    ASSERT_TRUE(kv::SaturationAtMean(t, -9.5, r));
    EXPECT_NEAR(r.p, std::sqrt(2.0 * 2.1), 1e-9);  // linear in ln p
    EXPECT_NEAR(r.hLiq, 180.65, 1e-9);
    EXPECT_FALSE(kv::SaturationAtMean(t, 41, r));

    kv::VapourState v;
    ASSERT_TRUE(kv::VapourAtSuperheat(t, 5.0, 10.0, v));
    EXPECT_NEAR(v.h, 405 + 10, 1e-9);
    EXPECT_NEAR(v.t, 25.0, 1e-9);
    EXPECT_NEAR(v.rho, 20.0, 1e-9);
    EXPECT_FALSE(kv::VapourAtSuperheat(t, 11.0, 10.0, v));  // above the last isobar
    EXPECT_FALSE(kv::VapourAtTemperature(t, 5.0, 30.0, v));  // no supercritical isobars here

    // The searches give the same state back.
    double h = 0.0, tC = 0.0;
    ASSERT_EQ(kv::VapourEnthalpyAtEntropy(t, 5.0, 1.69 + 0.003 * 10, h), kv::VapourFind::Found);
    EXPECT_NEAR(h, 415, 1e-6);
    ASSERT_EQ(kv::VapourTemperatureAtEnthalpy(t, 5.0, 415, tC), kv::VapourFind::Found);
    EXPECT_NEAR(tC, 25, 1e-6);
    EXPECT_EQ(kv::VapourEnthalpyAtEntropy(t, 5.0, 1.5, h), kv::VapourFind::Wet);
    EXPECT_EQ(kv::VapourTemperatureAtEnthalpy(t, 5.0, 900, tC), kv::VapourFind::Outside);
    EXPECT_EQ(kv::SuperheatFileName("R32.dat"), "R32_SH.DAT");
}

TEST(SuperheatTable, DamagedFilesNeverThrow) {
    const std::string good = SmallTable();
    for (const std::string& bad : kvtest::DamagedContents(good)) {
        kv::SuperheatTable t;
        EXPECT_NO_THROW(t = kv::ParseSuperheatTable(bad));
        kv::VapourState v;
        double h = 0.0;
        EXPECT_NO_THROW(kv::VapourAtSuperheat(t, 5.0, 10.0, v));
        EXPECT_NO_THROW(kv::VapourEnthalpyAtEntropy(t, 5.0, 1.7, h));
    }
    // Broken rows are skipped, the rest is kept.
    std::string edited = good;
    edited.replace(edited.find("S,-9.00"), 7, "S,-9.0x");
    edited += "V,1.0,20,400,1.8,5\r\n";  // a pressure below the isobars before it
    edited += "Q,1,2,3\r\nV,12,50\r\n";
    const kv::SuperheatTable t = kv::ParseSuperheatTable(edited);
    EXPECT_TRUE(t.present);
    EXPECT_EQ(t.sat.size(), 2u);
    EXPECT_EQ(t.isobars.size(), 3u);
    // Only one isobar: nothing to interpolate across.
    EXPECT_FALSE(kv::ParseSuperheatTable(good.substr(0, good.find("V,5,"))).present);
}

}  // namespace
