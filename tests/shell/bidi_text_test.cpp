// Figure runs set apart as left-to-right isolates for right-to-left text.
#include <gtest/gtest.h>

#include "shell/bidi_text.h"

namespace {

std::string Iso(const std::string& s) { return "\u2066" + s + "\u2069"; }

TEST(BidiText, FiguresUnitsAndSignsBecomeOneLeftToRightRun) {
    EXPECT_EQ(kv::IsolateFigures("-10 °C"), Iso("-10 °C"));
    EXPECT_EQ(kv::IsolateFigures("1 1/8'"), Iso("1 1/8'"));
    EXPECT_EQ(kv::IsolateFigures("95 mbar / 0.28 K"), Iso("95 mbar / 0.28 K"));
    // Inside Arabic words: only the run with figures is isolated.
    const std::string label = "\u062f\u0631\u062c\u0629 \u0627\u0644\u062d\u0631\u0627\u0631\u0629 /[\u00b0C] :";
    EXPECT_EQ(kv::IsolateFigures(label),
              "\u062f\u0631\u062c\u0629 \u0627\u0644\u062d\u0631\u0627\u0631\u0629 " + Iso("/[\u00b0C]") + " :");
    const std::string mixed = "\u0627\u0644\u0645\u0628\u062e\u0631 t0 -6 \u00b0C \u0627\u0644\u0636\u063a\u0637 5.2 bar";
    EXPECT_EQ(kv::IsolateFigures(mixed), "\u0627\u0644\u0645\u0628\u062e\u0631 " + Iso("t0 -6 \u00b0C") +
                                             " \u0627\u0644\u0636\u063a\u0637 " + Iso("5.2 bar"));
    // Signs alone, an empty text and a repeated call stay as they are.
    EXPECT_EQ(kv::IsolateFigures("- :"), "- :");
    EXPECT_EQ(kv::IsolateFigures(""), "");
    EXPECT_EQ(kv::IsolateFigures(kv::IsolateFigures("-10 °C")), Iso("-10 °C"));
    // A cut UTF-8 sequence is carried through, not read past the end.
    EXPECT_EQ(kv::IsolateFigures(std::string("5 \xd8", 3)), Iso("5") + std::string(" \xd8", 2));
}

}  // namespace
