#include <gtest/gtest.h>

#include "shell/captions.h"
#include "shell/files.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

using kvtest::WorkspaceTest;
namespace fs = std::filesystem;

namespace {

std::size_t LineCount(const fs::path& file) {
    kv::RecordReader in = kv::OpenIn(file);
    std::size_t n = 0;
    std::string line;
    while (in.ReadLine(line)) ++n;
    return n;
}

}  // namespace

// Every shipped table has exactly one line per word of its index, behind the
// title line, so no word of a language is shifted onto its neighbour's place.
TEST(CaptionTables, ShippedTablesMatchTheIndex) {
    const fs::path data = KELVARIS_FACTORY_DATA;
    struct Table { const char* stem; int count; };
    const Table tables[] = {
        {"Caption", static_cast<int>(kv::Cap::Count_)},      {"VerbCapt", static_cast<int>(kv::VerbWord::Count_)},
        {"HXCapt", static_cast<int>(kv::HxWord::Count_)},    {"AirCoCap", static_cast<int>(kv::AircoWord::Count_)},
        {"ESimCap", static_cast<int>(kv::EsimWord::Count_)}, {"DrawCap", static_cast<int>(kv::DrawWord::Count_)},
        {"PEDcap", static_cast<int>(kv::PedWord::Count_)}};
    EXPECT_EQ(static_cast<int>(kv::VerbWord::Count_), 25);
    EXPECT_EQ(static_cast<int>(kv::DrawWord::Count_), 23);
    int languages = 0;
    for (std::string_view lang : kv::kLanguages) {
        const fs::path caption = kv::ResolveName(data, "Caption." + std::string(lang));
        if (kv::FileLength(caption) == 0) continue;
        ++languages;
        for (const Table& t : tables) {
            const fs::path file = kv::ResolveName(data, std::string(t.stem) + "." + std::string(lang));
            EXPECT_EQ(LineCount(file), static_cast<std::size_t>(t.count)) << file;
        }
        const fs::path help = kv::ResolveName(data, "Kelvhelp." + std::string(lang));
        EXPECT_GT(kv::FileLength(help), 0u) << help;
        EXPECT_EQ(kv::FileLength(help) % kv::kHelpRecordLength, 0u) << help;
    }
    EXPECT_GE(languages, 2);
}

using CaptionLoading = WorkspaceTest;

TEST_F(CaptionLoading, WordsMessagesAndHelpOfTheShippedLanguages) {
    kv::InstallFactoryData(ws);
    ws.settings.Sprache = "GER";
    kv::LoadCaptions(ws);
    kv::LoadVerbCaptions(ws);
    kv::LoadOtherCaptions(ws);
    kv::LoadHelpTable(ws);
    EXPECT_FALSE(ws.captions[kv::Cap::MenuEnd].empty());
    EXPECT_FALSE(ws.captions.Message(59).empty());
    EXPECT_FALSE(ws.captions.Message(61).empty());
    EXPECT_TRUE(ws.captions.Message(0).empty());
    EXPECT_TRUE(ws.captions.Message(62).empty());
    ASSERT_FALSE(ws.captions.help.empty());
    EXPECT_FALSE(ws.captions.help.front().title.empty());
    EXPECT_EQ(kv::CaptionName(kv::Cap::MenuEnd), "MenuEnd");

    ws.settings.Sprache = "ENG";
    kv::LoadCaptions(ws);
    const std::string english = ws.captions[kv::Cap::MenuEnd];
    EXPECT_NE(english, "");
    EXPECT_EQ(ws.captions.language, "ENG");
}

TEST_F(CaptionLoading, ShortOrDamagedFileLeavesEmptyWordsBehindItsEnd) {
    Put("Caption.XYZ", "title\r\nfirst\r\nsecond");
    ws.settings.Sprache = "XYZ";
    kv::LoadCaptions(ws);
    EXPECT_EQ(ws.captions.caption[1], "first");
    EXPECT_EQ(ws.captions.caption[2], "second");
    EXPECT_EQ(ws.captions.Message(59), "");
    EXPECT_EQ(ws.captions[kv::Cap::MenuEnd], "");
    for (const std::string& bad : kvtest::DamagedContents("t\r\na\r\nb\r\n")) {
        Put("Caption.XYZ", bad);
        Put("Kelvhelp.XYZ", bad);
        kv::LoadCaptions(ws);
        kv::LoadHelpTable(ws);
        (void)ws.captions.Message(61);
        (void)ws.captions[kv::Cap::Count_];
    }
}

TEST_F(CaptionLoading, LanguageChangeNeedsItsTables) {
    kv::InstallFactoryData(ws);
    ws.settings.Sprache = "ENG";
    kv::LoadCaptions(ws);
    fs::remove(kv::ResolveName(ws, "Caption.TRK"));
    EXPECT_FALSE(kv::ChangeLanguage(ws, "TRK"));  // no Turkish tables here
    EXPECT_EQ(ws.settings.Sprache, "ENG");
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].text.rfind(ws.captions.Message(61) + " " + ws.captions[kv::Cap::Language], 0), 0u);

    Put("Caption.TRK", "");  // an empty file counts as missing
    EXPECT_EQ(kv::LanguageCheck(ws, "TRK"), 1);

    EXPECT_TRUE(kv::ChangeLanguage(ws, "GER"));
    EXPECT_EQ(ws.settings.Sprache, "GER");
    EXPECT_EQ(ws.captions.language, "GER");
    EXPECT_FALSE(ws.captions.verb[1].empty());
}

TEST_F(CaptionLoading, HelpTopicsFromFixedRecords) {
    auto record = [](const std::string& text) {
        std::string r = text;
        r.resize(126, ' ');
        return r + "\r\n";
    };
    Put("Kelvhelp.ENG", record("before any topic") + record("#Main menu") + record("Line one") + record("") +
                            record("#  Pipes ") + record("Pipe text"));
    const auto topics = kv::ReadHelpTable(ws, "kelvhelp.eng");
    ASSERT_EQ(topics.size(), 2u);
    EXPECT_EQ(topics[0].title, "Main menu");
    EXPECT_EQ(topics[0].lines, (std::vector<std::string>{"Line one", ""}));
    EXPECT_EQ(topics[1].title, "Pipes");
}

TEST(LanguageWords, SectionNamesAndJoints) {
    EXPECT_EQ(kv::LineSectionShortNames("ENG")[1], "SL");
    EXPECT_EQ(kv::LineSectionShortNames("NDL")[4], "VL");
    EXPECT_EQ(kv::LineSectionShortNames("POR")[2], "LD");
    EXPECT_EQ(kv::LineSectionShortNames("GER")[3], "KL");
    EXPECT_EQ(kv::GrammaticalJoint("ITA", kv::Joint::AsStandard), " come Standard");
    EXPECT_EQ(kv::GrammaticalJoint("FRA", kv::Joint::OfInstallation), " de l´installation");
    EXPECT_EQ(kv::FieldLabel("Length", "m"), "Length /[m] :");
    EXPECT_EQ(kv::LanguageName("GER"), "Deutsch");
}

namespace {

using StaleTables = kvtest::WorkspaceTest;

// A caption table an earlier release installed, one word short: the words
// come from the factory table, and the user's file stays as it was.
TEST_F(StaleTables, CaptionTableOutOfStepIsReadFromTheFactory) {
    kv::PrepareWorkspace(ws);
    const auto path = kv::ResolveName(ws, "Caption.ENG");
    const std::string text = kv::ReadWholeFile(path);
    const std::string shortened = text.substr(0, text.rfind("\r\n", text.size() - 3) + 2);
    kv::WriteFileAtomic(path, shortened);
    kv::LoadCaptions(ws);
    EXPECT_EQ(ws.captions[kv::Cap::Yes], "Yes");
    EXPECT_FALSE(ws.captions[static_cast<kv::Cap>(static_cast<int>(kv::Cap::Count_) - 1)].empty());
    EXPECT_EQ(kv::ReadWholeFile(path), shortened);
}

}  // namespace
