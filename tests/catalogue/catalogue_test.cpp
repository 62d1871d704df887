#include <gtest/gtest.h>

#include "catalogue/catalogue.h"
#include "catalogue/matchcode.h"
#include "shell/files.h"
#include "workspace_fixture.h"

namespace {

using kvtest::WorkspaceTest;
namespace fs = std::filesystem;

// Offsets and lengths of the 39 fields, written out here from the layout
// table rather than taken from the code under test.
constexpr int kOffsets[39] = {0,   40,  45,  60,  72,  112, 115, 117, 123, 128, 133, 137, 143,
                              149, 154, 159, 165, 170, 175, 185, 187, 202, 232, 262, 264, 279,
                              309, 339, 341, 356, 386, 416, 418, 433, 463, 493, 495, 510, 540};
constexpr int kLengths[39] = {40, 5, 15, 12, 40, 3, 2, 6, 5, 5, 4, 6, 6, 5, 5, 6, 5, 5, 10, 2,
                              15, 30, 30, 2, 15, 30, 30, 2, 15, 30, 30, 2, 15, 30, 30, 2, 15, 30, 30};

// A 570-byte record with `texts` (field number, bytes) placed by hand.
std::string Record(std::initializer_list<std::pair<int, std::string>> texts) {
    std::string r(570, ' ');
    for (const auto& [no, text] : texts) r.replace(static_cast<std::size_t>(kOffsets[no - 1]), text.size(), text);
    return r;
}

// A valve article: kv, order number, connection, dp max and dp min.
std::string Valve(const std::string& type, const std::string& kv, const std::string& conn) {
    return Record({{1, type}, {2, kv}, {3, "ORD-" + type}, {4, conn}, {17, "500"}, {18, "50"}});
}

std::string Text128(const std::string& s) { return s + std::string(128 - s.size(), ' '); }

class Catalogue : public WorkspaceTest {
protected:
    // A record file of `records` blank records with the given ones set.
    void PutRecords(const std::string& name, long long records, std::initializer_list<std::pair<int, std::string>> set) {
        std::string bytes(static_cast<std::size_t>(records) * 570, ' ');
        for (const auto& [no, r] : set) bytes.replace(static_cast<std::size_t>(no - 1) * 570, 570, r);
        Put(name, bytes);
    }
    void PutSeries(const std::string& base, std::initializer_list<std::pair<int, std::string>> names) {
        std::string bytes(18 * 128, ' ');
        for (const auto& [slot, n] : names) bytes.replace(static_cast<std::size_t>(slot - 1) * 128, 128, Text128(n));
        Put(base + "I.rdm", bytes);
    }
};

TEST(ArticleRecord, FieldsStandWhereTheLayoutPutsThem) {
    std::string raw(570, ' ');
    for (int i = 0; i < 39; ++i) {
        const std::string tag = std::to_string(i + 1);
        raw.replace(static_cast<std::size_t>(kOffsets[i]), std::min<std::size_t>(tag.size(), kLengths[i]),
                    tag.substr(0, static_cast<std::size_t>(kLengths[i])));
        raw[static_cast<std::size_t>(kOffsets[i] + kLengths[i] - 1)] = i % 2 ? 'x' : 'y';  // the field's last byte
    }
    const kv::Article a = kv::DecodeArticle(raw);
    for (int i = 0; i < 39; ++i) {
        const std::string& f = a.Field(i + 1);
        ASSERT_EQ(static_cast<int>(f.size()), kLengths[i]) << "field " << i + 1;
        EXPECT_EQ(f.back(), i % 2 ? 'x' : 'y') << "field " << i + 1;
    }
    EXPECT_EQ(kv::EncodeArticle(a), raw);

    // Old code page: ü is 129, ° is 248; a double quote reads as two apostrophes.
    const std::string dos = Record({{1, "Ventil f\x81r 3\"-Leitung"}, {5, "bis 120\xF8" "C"}, {19, "  1234,50"}});
    const kv::Article b = kv::DecodeArticle(dos);
    EXPECT_EQ(b.Field(1), "Ventil für 3''-Leitung");
    EXPECT_EQ(b.Field(5), "bis 120°C");
    EXPECT_DOUBLE_EQ(b.Number(19), 1234.5);
    const std::string back = kv::EncodeArticle(b);
    EXPECT_EQ(back.substr(0, 22), "Ventil f\x81r 3''-Leitung");
    EXPECT_EQ(back.substr(72, 9), "bis 120\xF8" "C");
    EXPECT_EQ(kv::AnsiToOem("Größe ß"), "Gr\x94\xE1" "e \xE1");

    // A short record reads as blank beyond its end; fields too long are cut.
    const kv::Article shortOne = kv::DecodeArticle(dos.substr(0, 50));
    EXPECT_EQ(shortOne.Field(1), "Ventil für 3''-Leitung");
    EXPECT_EQ(shortOne.Field(5), "");
    kv::Article longOne;
    longOne.SetField(7, "12345");
    EXPECT_EQ(kv::EncodeArticle(longOne).substr(115, 3), "12 ");
}

TEST(CatalogueSlots, CodesPositionsAndKinds) {
    EXPECT_EQ(kv::SlotCode(1), 250);
    EXPECT_EQ(kv::SlotCode(11), 0);
    EXPECT_EQ(kv::SeriesPosition(kv::SlotCode(11)), 2);  // right behind the version mark
    EXPECT_EQ(kv::SlotCode(18), 850);
    EXPECT_EQ(kv::SlotCode(0), 0);
    EXPECT_EQ(kv::SlotCode(19), 0);
    EXPECT_EQ(kv::OldPositionToNew(68), 52);
    EXPECT_EQ(kv::OldPositionToNew(134), 102);
    EXPECT_EQ(kv::OldPositionToNew(1124), 852);
    EXPECT_EQ(kv::OldPositionToNew(1190), 1190);
    EXPECT_EQ(kv::OldPositionToNew(2), 2);
    EXPECT_EQ(kv::OldPositionToNew(552), 552);
    EXPECT_EQ(kv::KindFromBase("ALVORkp"), 2);
    EXPECT_EQ(kv::KindFromBase("ALVOREX"), 1);
    EXPECT_EQ(kv::KindFromBase("SORVIKA"), 5);
    EXPECT_EQ(kv::KindFromBase("ALVORMV"), 7);
    EXPECT_EQ(kv::KindFromBase("GENERAL"), 0);
    EXPECT_EQ(kv::IndexCode(2, 250), 550);
    EXPECT_EQ(kv::IndexCode(5, 250), 250);
    EXPECT_EQ(kv::IndexLetter(5), 'C');
    EXPECT_EQ(kv::IndexLetter(7), 'I');
}

TEST_F(Catalogue, KindIsWrittenBackIntoRecord51) {
    PutRecords("brekkkpN.rdm", 100, {});
    EXPECT_EQ(kv::CatalogueKind(ws, "brekkkp"), 2);
    EXPECT_EQ(Get("brekkkpN.rdm").substr(50 * 570, 2), "2 ");
    EXPECT_EQ(Get("brekkkpN.rdm").size(), 100u * 570);

    // A stored kind wins over the letters.
    PutRecords("TUNDRKPN.rdm", 100, {{51, Record({{1, "7"}})}});
    EXPECT_EQ(kv::CatalogueKind(ws, "TUNDRKP"), 7);

    // A file too short for record 51, or none, is not written to.
    PutRecords("SHORTVDN.rdm", 10, {});
    EXPECT_EQ(kv::CatalogueKind(ws, "SHORTVD"), 3);
    EXPECT_EQ(Get("SHORTVDN.rdm").size(), 10u * 570);
    EXPECT_EQ(kv::CatalogueKind(ws, "NOFILES"), 0);
    EXPECT_FALSE(fs::exists(ws.DataDir() / "NOFILESN.rdm"));
}

TEST_F(Catalogue, SeriesEndsAtTheEmptyRecordOrAtTheEndOfTheData) {
    // Slot 11 (code 0): articles from record 2, behind the version mark.
    PutRecords("ALVORGNN.rdm", 100, {{1, Record({{1, "\xA7$2000%&"}})},
                                     {2, Valve("SV 1", "0.2", "10")},
                                     {3, Valve("SV 2", "0,8", "12")},
                                     {4, Valve("SV 3", "2.5", "16")},
                                     {5, Record({{1, "no numbers"}, {2, "abc"}, {4, "x"}})},
                                     {6, Valve("SV 9", "9", "28")}});
    auto rows = kv::ReadSeriesArticles(ws, "ALVORGN", 2);
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].record, 2);
    EXPECT_EQ(rows[1].article.Field(kv::field::OrderNumber), "ORD-SV 2");
    EXPECT_DOUBLE_EQ(rows[1].article.Number(kv::field::Size), 0.8);

    // The file cut inside record 3: the partial record still reads, nothing beyond it.
    Put("ALVORGNN.rdm", Get("ALVORGNN.rdm").substr(0, 2 * 570 + 60));
    rows = kv::ReadSeriesArticles(ws, "ALVORGN", 2);
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[1].article.Field(kv::field::Type), "SV 2");
    EXPECT_TRUE(kv::ReadSeriesArticles(ws, "MISSING", 2).empty());
    EXPECT_TRUE(kv::ReadSeriesArticles(ws, "ALVORGN", -5).empty());

    // At most 48 rows, even when the group runs on.
    std::string full;
    for (int i = 0; i < 60; ++i) full += Valve("V" + std::to_string(i), "1", "10");
    Put("LONGSERN.rdm", full);
    EXPECT_EQ(kv::ReadSeriesArticles(ws, "LONGSER", 1).size(), 48u);
}

TEST_F(Catalogue, AccessoryTextsAndSeriesNames) {
    std::string texts(18 * 6 * 128, ' ');
    texts.replace(6 * 128, 128, Text128("#Magnetspule 230 V, Steckerform A, f\x81r alle Ventile der Reihe, Schutzart IP65 mit Kabel 1 m"));
    texts.replace(7 * 128, 128, Text128(std::string(60, 'k')));
    Put("ALVORGNA.rdm", texts);
    const auto a = kv::ReadAccessoryTexts(ws, "ALVORGN", 52);  // the second group in record order
    EXPECT_TRUE(a[0].flagged);
    EXPECT_EQ(a[0].text.substr(0, 18), "Magnetspule 230 V,");
    EXPECT_NE(a[0].text.find("für alle"), std::string::npos);
    EXPECT_FALSE(a[1].flagged);
    EXPECT_EQ(a[1].text, std::string(55, 'k'));
    EXPECT_EQ(kv::ReadAccessoryTexts(ws, "ALVORGN", 68)[0].text, a[0].text);  // old position of the same group

    PutSeries("ALVORGN", {{1, "MV-Reihe \"A\""}, {11, "  "}});
    Put("ALVORGNI.rdm", Get("ALVORGNI.rdm").substr(0, 3 * 128 + 5));
    const auto names = kv::ReadSeriesNames(ws, "ALVORGN");
    EXPECT_EQ(names[0], "MV-Reihe ''A''");
    EXPECT_EQ(names[10], "");
}

TEST_F(Catalogue, MatchcodeByKind) {
    Put("katalg.lst", "\"ALVORGNN.rdm\",\"Alvoran general\"\r\n\"SORVIKAN.rdm\",\"Sorvik brine\"\r\n"
                      "\"BREKKKPN.rdm\",\"Brekka compressors\"\r\n\"GONEAWAN.rdm\",\"missing files\"\r\n");
    PutRecords("ALVORGNN.rdm", 900, {});
    PutRecords("SORVIKAN.rdm", 900, {});
    PutRecords("BREKKKPN.rdm", 900, {});
    PutSeries("ALVORGN", {{1, "Solenoid MX"}, {3, "Filter FD"}, {11, "EV"}});
    PutSeries("SORVIKA", {{1, "Brine valves BV"}});
    PutSeries("BREKKKP", {{1, "Piston P4"}, {14, "Scroll S2"}});
    std::vector<int> seen;
    EXPECT_TRUE(kv::EnsureMatchcode(ws, [&](int p) { seen.push_back(p); }));
    ASSERT_FALSE(seen.empty());
    EXPECT_EQ(seen.back(), 100);
    for (int slot = 1; slot <= 18; ++slot)
        for (const char* l : {"I", "C"}) EXPECT_TRUE(fs::exists(ws.DataDir() / (std::to_string(kv::SlotCode(slot)) + l + ".dat")));

    EXPECT_EQ(Get("250I.dat"), "\"ALVORGN\",\"Alvoran general\",\"Solenoid MX\",\"252\"\r\n");
    EXPECT_EQ(Get("250C.dat"), "\"SORVIKA\",\"Sorvik brine\",\"Brine valves BV\",\"252\"\r\n");
    EXPECT_EQ(Get("550I.dat"), "\"BREKKKP\",\"Brekka compressors\",\"Piston P4\",\"252\"\r\n"
                               "\"BREKKKP\",\"Brekka compressors\",\"Scroll S2\",\"552\"\r\n");
    EXPECT_EQ(Get("0I.dat"), "\"ALVORGN\",\"Alvoran general\",\"EV\",\"2\"\r\n");
    EXPECT_FALSE(kv::MatchcodeNeeded(ws));

    // The lookup leaves out names under three characters and hidden products.
    EXPECT_TRUE(kv::LookupSeries(ws, 0, 'I').empty());
    Put("Prodhide.dat", "ALTE SCROLL S2 REIHE\r\n\r\nPiston\r\n");
    const auto compressors = kv::LookupSeries(ws, 550, 'I');
    ASSERT_EQ(compressors.size(), 1u);
    EXPECT_EQ(compressors[0].position, 252);
    std::string title, base;
    kv::SplitCell(compressors[0].Cell(), title, base);
    EXPECT_EQ(title, "Brekka compressors");
    EXPECT_EQ(base, "BREKKKP");

    // The compressor list of a refrigerant: built once from the first compressor catalogue.
    const auto list = kv::CompressorList(ws, "r410a");
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(Get("R410A.LST"), "\"BREKKKPN.rdm\",\"Piston P4\",332\r\n\"BREKKKPN.rdm\",\"Scroll S2\",728\r\n");
    EXPECT_EQ(kv::OldPositionToNew(list[1].oldPosition), 552);
}

TEST_F(Catalogue, CreateBlankAndCopy) {
    ASSERT_TRUE(kv::CreateCatalogue(ws, "NEWCAEX", 1));
    const std::string n = Get("NEWCAEXN.rdm");
    ASSERT_EQ(n.size(), 900u * 570);
    EXPECT_EQ(n.substr(0, 9), "\xA7$2000%& ");
    EXPECT_EQ(n.substr(50 * 570, 2), "1 ");
    EXPECT_EQ(Get("NEWCAEXI.rdm"), std::string(18 * 128, ' '));
    EXPECT_EQ(Get("NEWCAEXA.rdm").size(), 18u * 6 * 128);
    EXPECT_EQ(kv::DecodeArticle(n.substr(0, 570)).Field(1), kv::kVersionMark);

    PutRecords("BREKKKPN.rdm", 300, {{253, Valve("P4-110", "11", "28")}});
    PutSeries("BREKKKP", {{14, "Piston P4"}});
    ASSERT_TRUE(kv::CreateCatalogue(ws, "MYCOPKP", 2, "BREKKKP"));
    EXPECT_EQ(kv::ReadSeriesNames(ws, "MYCOPKP")[13], "Piston P4");
    EXPECT_EQ(Get("MYCOPKPN.rdm").size(), 900u * 570);
    EXPECT_EQ(Get("MYCOPKPN.rdm").substr(252 * 570, 570), Valve("P4-110", "11", "28"));
    EXPECT_EQ(kv::CatalogueKind(ws, "MYCOPKP"), 2);
}

TEST_F(Catalogue, DamagedFilesNeverStopTheIndex) {
    PutRecords("ALVORGNN.rdm", 60, {{2, Valve("SV 1", "1", "10")}});
    PutSeries("ALVORGN", {{11, "Valves"}});
    for (const std::string& bad : kvtest::DamagedContents("\"ALVORGNN.rdm\",\"Alvoran\"\r\n")) {
        Put("katalg.lst", bad);
        kv::BuildMatchcode(ws);
        (void)kv::LookupSeries(ws, 0, 'I');
    }
    for (const std::string& bad : kvtest::DamagedContents(Get("ALVORGNN.rdm"))) {
        Put("BADFILEN.rdm", bad);
        Put("BADFILEI.rdm", bad);
        Put("BADFILEA.rdm", bad);
        EXPECT_LE(kv::ReadSeriesArticles(ws, "BADFILE", 2).size(), 48u);
        (void)kv::ReadSeriesNames(ws, "BADFILE");
        (void)kv::ReadAccessoryTexts(ws, "BADFILE", 1124);
        (void)kv::CatalogueKind(ws, "BADFILE");
    }
}

}  // namespace
