#include "shell/captions.h"

#include <filesystem>

#include "shell/files.h"
#include "shell/text.h"
#include "shell/numbers.h"
#include "shell/workspace.h"

namespace kv {

namespace {
#define KV_CAPTION(name) #name,
#define KV_VERB(name)
#define KV_HX(name)
#define KV_AIRCO(name)
#define KV_ESIM(name)
#define KV_DRAW(name)
#define KV_PED(name)
constexpr std::string_view kCaptionNames[] = {
    "TitleLine_",
#include "shell/caption_words.inc"
};
#undef KV_CAPTION
#undef KV_VERB
#undef KV_HX
#undef KV_AIRCO
#undef KV_ESIM
#undef KV_DRAW
#undef KV_PED

static_assert(static_cast<int>(Cap::Msg61) - static_cast<int>(Cap::Msg01) == kMessageCount - 1,
              "the message table is one run of 61 words");

std::string TableName(std::string_view stem, std::string_view language) {
    std::string n(stem);
    n += '.';
    n += language;
    return n;
}

}  // namespace

std::string_view CaptionName(Cap word) {
    const auto i = static_cast<std::size_t>(word);
    return i < std::size(kCaptionNames) ? kCaptionNames[i] : std::string_view{};
}

std::string_view LanguageName(std::string_view code) {
    struct Entry { std::string_view code, name; };
    static constexpr Entry names[] = {
        {"ARA", "العربية"}, {"BUL", "Български"}, {"CRO", "Hrvatski"}, {"CZH", "Čeština"},
        {"DAN", "Dansk"},   {"ENG", "English"},   {"ESP", "Español"},  {"FRA", "Français"},
        {"GER", "Deutsch"}, {"GRE", "Ελληνικά"},  {"HUN", "Magyar"},   {"ITA", "Italiano"},
        {"NDL", "Nederlands"}, {"NOR", "Norsk"},  {"POL", "Polski"},   {"POR", "Português"},
        {"ROM", "Română"},  {"RUS", "Русский"},   {"SVK", "Slovenčina"}, {"SWE", "Svenska"},
        {"TRK", "Türkçe"},  {"TWA", "繁體中文"}};
    for (const Entry& e : names)
        if (e.code == code) return e.name;
    return code;
}

const std::string& WordTable::operator[](int index) const {
    static const std::string empty;
    return index >= 0 && static_cast<std::size_t>(index) < words_.size() ? words_[static_cast<std::size_t>(index)]
                                                                          : empty;
}

const std::string& Captions::Message(int number) const {
    static const std::string empty;
    if (number < 1 || number > kMessageCount) return empty;
    return caption[static_cast<int>(Cap::Msg01) + number - 1];
}

std::vector<std::string> ReadCaptionFile(const Workspace& ws, std::string_view fileName) {
    RecordReader in = OpenIn(ws, fileName);
    std::vector<std::string> lines;
    std::string line;
    while (in.ReadLine(line)) lines.emplace_back(std::move(line));
    // A byte-order mark of an editor is not part of the title line.
    if (!lines.empty() && lines[0].rfind("\xEF\xBB\xBF", 0) == 0) lines[0].erase(0, 3);
    return lines;
}

namespace {

// A table of the data directory that an earlier release installed holds
// fewer or more words than this program reads by position: every word
// behind the first difference would stand in the wrong place. Such a table
// is read from the factory data instead (the user's file stays as it is);
// a table that fits, edited or not, is the user's.
std::vector<std::string> ReadFittingTable(const Workspace& ws, const std::string& name, int lineCount) {
    std::vector<std::string> lines = ReadCaptionFile(ws, name);
    if (lines.empty() || static_cast<int>(lines.size()) == lineCount || ws.factoryDir.empty()) return lines;
    const std::filesystem::path factory = ResolveName(ws.factoryDir, name);
    if (!std::filesystem::exists(factory)) return lines;
    RecordReader in = OpenIn(factory);
    std::vector<std::string> own;
    std::string line;
    while (in.ReadLine(line)) own.emplace_back(std::move(line));
    if (!own.empty() && own[0].rfind("\xEF\xBB\xBF", 0) == 0) own[0].erase(0, 3);
    return static_cast<int>(own.size()) == lineCount ? own : lines;
}

template <class Words>
int LineCount() {
    return static_cast<int>(Words::Count_);
}

}  // namespace

void LoadCaptions(Workspace& ws) {
    ws.captions.caption.Assign(ReadFittingTable(ws, TableName("Caption", ws.settings.Sprache), LineCount<Cap>()));
    ws.captions.language = ws.settings.Sprache;
}

void LoadVerbCaptions(Workspace& ws) {
    ws.captions.verb.Assign(ReadFittingTable(ws, TableName("VerbCapt", ws.settings.Sprache), LineCount<VerbWord>()));
}

void LoadOtherCaptions(Workspace& ws) {
    const std::string& l = ws.settings.Sprache;
    ws.captions.hx.Assign(ReadFittingTable(ws, TableName("HXCapt", l), LineCount<HxWord>()));
    ws.captions.airco.Assign(ReadFittingTable(ws, TableName("AirCoCap", l), LineCount<AircoWord>()));
    ws.captions.esim.Assign(ReadFittingTable(ws, TableName("ESimCap", l), LineCount<EsimWord>()));
    ws.captions.draw.Assign(ReadFittingTable(ws, TableName("DrawCap", l), LineCount<DrawWord>()));
    ws.captions.ped.Assign(ReadFittingTable(ws, TableName("PEDcap", l), LineCount<PedWord>()));
}

std::vector<HelpTopic> ReadHelpTable(const Workspace& ws, std::string_view fileName) {
    std::vector<HelpTopic> topics;
    const RandomFile file = OpenRandom(ws, fileName, kHelpRecordLength);
    const long long count = file.RecordCount();
    std::string record;
    for (long long n = 1; n <= count; ++n) {
        if (!file.Get(n, record)) break;
        // Trailing blanks, line ends and NULs of the fixed record are padding.
        std::size_t end = record.size();
        while (end > 0 && (record[end - 1] == ' ' || record[end - 1] == '\r' || record[end - 1] == '\n' ||
                           record[end - 1] == '\0'))
            --end;
        record.resize(end);
        record = TextToUtf8(record);
        if (!record.empty() && record[0] == '#') {
            topics.push_back({std::string(Trim(std::string_view(record).substr(1))), {}});
        } else if (!topics.empty()) {
            topics.back().lines.push_back(record);
        }
    }
    return topics;
}

void LoadHelpTable(Workspace& ws) { ws.captions.help = ReadHelpTable(ws, TableName("Kelvhelp", ws.settings.Sprache)); }

bool LanguageAvailable(const Workspace& ws, std::string_view code) {
    return FileLength(ws, TableName("Caption", code)) > 0;
}

int LanguageCheck(Workspace& ws, std::string_view code) {
    if (LanguageAvailable(ws, code)) return 0;
    ws.ui.Message(ws.Title(), ws.captions.Message(61) + " " + ws.captions[Cap::Language] + " " + std::string(code),
                  MessageIcon::Error);
    return 1;
}

bool ChangeLanguage(Workspace& ws, std::string_view code) {
    if (LanguageCheck(ws, code) != 0) return false;
    ws.settings.Sprache = std::string(code);
    LoadCaptions(ws);
    LoadVerbCaptions(ws);
    LoadHelpTable(ws);
    return true;
}

std::array<std::string_view, 5> LineSectionShortNames(std::string_view language) {
    if (language == "NDL") return {"EL", "ZL", "PL", "CL", "VL"};
    if (language == "FRA") return {"TD", "TA", "TR", "LC", "LL"};
    if (language == "ITA") return {"LE", "LA", "LS", "LC", "LL"};
    if (language == "ENG") return {"EL", "SL", "DL", "CL", "LL"};
    if (language == "ESP" || language == "POR") return {"LE", "LS", "LD", "LC", "LL"};
    return {"EL", "SL", "DL", "KL", "FL"};
}

std::string_view GrammaticalJoint(std::string_view language, Joint joint) {
    switch (joint) {
        case Joint::Of:
            if (language == "FRA" || language == "POR") return " de ";
            if (language == "ESP") return " del ";
            if (language == "ITA") return " di ";
            return " ";
        case Joint::OfPlural:
            if (language == "FRA") return " des ";
            if (language == "ITA") return " dei ";
            if (language == "ESP" || language == "POR") return " de ";
            return " ";
        case Joint::A:
            if (language == "FRA") return " un ";
            return " ";
        case Joint::FittingsOfLine:
            if (language == "FRA") return "Accessoires de ligne";
            return {};
        case Joint::OfInstallation:
            if (language == "FRA") return " de l´installation";
            return {};
        case Joint::AsStandard:
            if (language == "ITA") return " come Standard";
            if (language == "ESP") return " del Standard";
            if (language == "FRA" || language == "POR") return " de Standard";
            if (language == "NDL") return "    Standaard ";
            return "    Standard ";
    }
    return {};
}

std::string FieldLabel(std::string_view word, std::string_view unit) {
    std::string s(word);
    if (!unit.empty()) {
        s += " /[";
        s += unit;
        s += "]";
    }
    s += " :";
    return s;
}

}  // namespace kv
