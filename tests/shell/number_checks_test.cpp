#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "shell/number_checks.h"

TEST(NumberChecks, TypedNumbersAndWhatIsNoNumber) {
    for (const char* yes : {"12,5", " -10 ", "+3", ".5", "5.", "1e3", "2,5E-2"})
        EXPECT_TRUE(kv::IsNumberText(yes)) << yes;
    for (const char* no : {"", " ", "abc", "zehn", "10 kW", "1.234,5", "&H10", "1e", "-", ",", "1e3.5"})
        EXPECT_FALSE(kv::IsNumberText(no)) << no;
    const kv::NumberRange velocity{0, 100, true};
    EXPECT_EQ(kv::CheckNumberField("", velocity), kv::NumberFault::None);  // the screen's rule decides
    EXPECT_EQ(kv::CheckNumberField("8,5", velocity), kv::NumberFault::None);
    EXPECT_EQ(kv::CheckNumberField("0,0", velocity), kv::NumberFault::Zero);
    EXPECT_EQ(kv::CheckNumberField("-1", velocity), kv::NumberFault::Implausible);
    EXPECT_EQ(kv::CheckNumberField("1e400", velocity), kv::NumberFault::Implausible);
    EXPECT_EQ(kv::CheckNumberField("8 m/s", velocity), kv::NumberFault::NotANumber);
}

TEST(NumberChecks, IntegersOfOutsideDataFailRatherThanWrap) {
    long long part = 7;
    EXPECT_TRUE(kv::IntegerPart(-2.9, part));
    EXPECT_EQ(part, -2);
    EXPECT_TRUE(kv::IntegerPart(-9223372036854775808.0, part));
    for (double bad : {1.5e42, 9223372036854775808.0, -1e19, std::nan(""), std::numeric_limits<double>::infinity()}) {
        part = 7;
        EXPECT_FALSE(kv::IntegerPart(bad, part)) << bad;
        EXPECT_EQ(part, 7);
    }
    int rounded = 7;
    EXPECT_TRUE(kv::RoundedInteger(2.5, rounded));
    EXPECT_EQ(rounded, 2);  // half to even
    EXPECT_TRUE(kv::RoundedInteger(-2147483648.4, rounded));
    EXPECT_EQ(rounded, -2147483647 - 1);
    EXPECT_FALSE(kv::RoundedInteger(2147483647.5, rounded));
    EXPECT_FALSE(kv::RoundedInteger(1e12, rounded));
    EXPECT_EQ(rounded, -2147483647 - 1);
}
