#include <gtest/gtest.h>

#include <cmath>

#include "lines/pressure_drop.h"

namespace {

// The smooth-tube law the iteration settles on.
double PrandtlResidual(double re, double lambda) {
    return 1.0 / std::sqrt(lambda) - (2.0 * std::log10(re * std::sqrt(lambda)) - 0.8);
}

const kv::LossRules kRules;  // tube 0.6 per 10 m, zeta mode

}  // namespace

TEST(FrictionFactor, IterationAlwaysRunsAndStartsFromZeroAtOneHundredThousand) {
    EXPECT_EQ(kv::FrictionFactor(100000), 0.0);
    for (double re : {500.0, 2299.0, 2300.0, 50000.0, 99999.0, 100001.0, 1e6}) {
        SCOPED_TRACE(re);
        const double l = kv::FrictionFactor(re);
        EXPECT_NEAR(PrandtlResidual(re, l), 0.0, 0.02);
    }
    // Laminar flow gets the turbulent value, not 64 / Re.
    EXPECT_NEAR(kv::FrictionFactor(1000), 0.0622, 0.001);
    EXPECT_NE(kv::FrictionFactor(1000), 0.064);
}

TEST(FittingFactor, StepsByBore) {
    EXPECT_EQ(kv::FittingFactor(21.9), 1.25);
    EXPECT_EQ(kv::FittingFactor(22), 1.0);
    EXPECT_EQ(kv::FittingFactor(34.99), 1.0);
    EXPECT_EQ(kv::FittingFactor(35), 0.75);
    EXPECT_EQ(kv::FittingFactor(54), 0.5);
    EXPECT_EQ(kv::FittingFactor(89), 0.25);
}

TEST(LineDropSingle, ZetaDefaultsStaticHeadAndBothLossModes) {
    // Length 0 and zeta 0: only the static head is left.
    double zeta = 0;
    EXPECT_NEAR(kv::LineDropSingle(kRules, 0.05, 20, 20, 0, 1.2e-5, zeta, 2), 9.81 * 20 * 2 / 100, 1e-12);
    EXPECT_EQ(zeta, 0);
    // A zeta of 0 becomes 0.6 per 10 m, for the caller too.
    zeta = 0;
    kv::DropDetail d;
    const double loss = kv::LineDropSingle(kRules, 0.05, 20, 20, 10, 1.2e-5, zeta, 0, &d);
    EXPECT_NEAR(zeta, 0.6, 1e-12);
    EXPECT_NEAR(d.velocity, 4 * 0.05 / (3.1415 * 0.0004 * 20), 1e-12);
    EXPECT_NEAR(d.reynolds, 20 * d.velocity * 0.02 / 1.2e-5, 1e-6);
    // The tube's allowance is scaled by 1.25 below 22 mm: effective zeta 0.75.
    const double dynamic = 20 * d.velocity * d.velocity / (2 * 0.02);
    EXPECT_NEAR(loss, (d.lambda * 10 + 0.02 * 0.75) * dynamic / 100, 1e-9);
    // Allowance in percent: the zeta plays no part.
    kv::LossRules percent = kRules;
    percent.lossMode = kv::kLossModePercent;
    percent.lossPercent = 30;
    zeta = 5;
    EXPECT_NEAR(kv::LineDropSingle(percent, 0.05, 20, 20, 10, 1.2e-5, zeta, 0), d.lambda * 13 * dynamic / 100, 1e-9);
}

TEST(LineDropTwoPhase, ChisholmAgainstAHandCalculation) {
    // R134a-like injection line: m 0.03 kg/s, di 10 mm, 5 m, zeta 2, x 0.25,
    // rho' 1200, rho'' 15 kg/m³, eta' 2.5e-4, eta'' 1.1e-5 Pa s.
    //   liquid only: w = 4 0.03 / (3.1415 0.01² 1200) = 0.318319 m/s
    //                Re = 1200 0.318319 0.01 / 2.5e-4 = 15279.3
    //                lambda (Prandtl-Karman from Blasius 0.02850) = 0.0276794
    //                zeta: tube 0.3 x 1.25 + 1.7 = 2.075
    //                dp = (0.0276794 5 + 0.01 2.075) 1200 0.318319² / 0.02 / 100 = 9.67555 mbar
    //   G = 4 0.03 / (3.1415 0.01²) = 381.983 kg/(m² s)
    //   Y = sqrt(1200 / 15) (1.1e-5 / 2.5e-4)^0.1 = 6.54471
    //   B = 520 / (Y sqrt(G)) = 4.06528 (Y between 0.95 and 28, G up to 600)
    //   multiplier = 1 + (Y² - 1)(0.25^1.8 + B 0.25^0.9 0.75^0.9) = 42.1475
    //   dp = 9.67555 x 42.1475 = 407.800 mbar
    double zeta = 2;
    kv::DropDetail d;
    const double loss = kv::LineDropTwoPhase(kRules, 0.03, 1200, 15, 1.1e-5, 2.5e-4, 10, 5, 0.25, zeta, &d);
    EXPECT_NEAR(d.reynolds, 15279.3, 0.1);
    EXPECT_NEAR(d.lambda, 0.0276794, 1e-6);
    EXPECT_NEAR(d.multiplier, 42.1475, 1e-3);
    EXPECT_NEAR(loss, 407.800, 0.01);
    // Pure liquid has no multiplier.
    zeta = 2;
    EXPECT_NEAR(kv::LineDropTwoPhase(kRules, 0.03, 1200, 15, 1.1e-5, 2.5e-4, 10, 5, 0, zeta), 9.67555, 1e-4);
}

TEST(LineDropTwoPhase, ChisholmBTableEdges) {
    EXPECT_EQ(kv::ChisholmB(0.95, 499), 4.8);  // Y = 0.95 takes the first rows
    EXPECT_EQ(kv::ChisholmB(0.95, 500), 2400.0 / 500);
    EXPECT_EQ(kv::ChisholmB(0.95, 1900), 55.0 / std::sqrt(1900.0));
    EXPECT_EQ(kv::ChisholmB(0.96, 600), 520.0 / (0.96 * std::sqrt(600.0)));
    EXPECT_EQ(kv::ChisholmB(0.96, 601), 21.0 / 0.96);
    EXPECT_EQ(kv::ChisholmB(28, 400), 15000.0 / (28.0 * 28.0 * 20.0));
}

TEST(LineFigures, OilMarginAndCondenserDensity) {
    const double share = kv::OilCarryPercent(31.5, 5.25);  // 1.05 sqrt(4) / 5.25 = 0.4
    EXPECT_NEAR(share, 0.4, 1e-12);
    EXPECT_EQ(kv::OilCarryShown(0.41279), 41.2);

    EXPECT_EQ(kv::CondenserLineQuality("auto", 1.0, false, "auto"), 0.0667);
    EXPECT_EQ(kv::CondenserLineQuality("", 0.99, false, "auto"), 0.0476);
    EXPECT_EQ(kv::CondenserLineQuality(" AUTO ", 0.69, false, "auto"), 0.0204);
    EXPECT_EQ(kv::CondenserLineQuality("", 0.5, false, "auto"), 0.01);
    EXPECT_EQ(kv::CondenserLineQuality("5", 0.5, false, "auto"), 0.05);
    EXPECT_EQ(kv::CondenserLineQuality("5", 0.5, true, "auto"), 0.0);
    EXPECT_EQ(kv::CondenserLineDensity("5", 0.5, 1100, 50, true, "auto"), 1100);
    // 10 % vapour by mass: volume share 0.1/50 / (0.1/50 + 0.9/1000) = 0.689655
    EXPECT_NEAR(kv::CondenserLineDensity("10", 0.5, 1000, 50, false, "auto"),
                (1 - 0.6896552) * 1000 + 0.6896552 * 50, 1e-3);
    EXPECT_NEAR(kv::CorrectedGasViscosity(1e-5, 16), 1e-5 * 1.0183, 1e-15);
}
