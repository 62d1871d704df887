// The test program runs in the user's locale, as the desktop program does
// (Qt takes the environment's locale at start): the pass of the suite under
// de_DE.UTF-8 must meet a comma as the decimal separator of the C library.
#include <gtest/gtest.h>

#include <clocale>
#include <locale>
#include <stdexcept>

int main(int argc, char** argv) {
    std::setlocale(LC_ALL, "");
    try {
        std::locale::global(std::locale(""));
    } catch (const std::runtime_error&) {
        // A locale the system does not have: the C library's setting stands.
    }
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
