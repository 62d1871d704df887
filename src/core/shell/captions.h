// The caption tables: every visible word of the system, one table set per
// language, addressed by position. Caption.<LANG> holds the general words,
// the numbered message table at its place, then further words; its first line
// is a title and is dropped.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace kv {

struct Workspace;

#define KV_CAPTION(name) name,
#define KV_VERB(name)
#define KV_HX(name)
#define KV_AIRCO(name)
#define KV_ESIM(name)
#define KV_DRAW(name)
#define KV_PED(name)
// Words of Caption.<LANG>; the first is line 2 of the file.
enum class Cap : int {
    TitleLine_ = 0,
#include "shell/caption_words.inc"
    Count_
};
#undef KV_CAPTION
#define KV_CAPTION(name)
#undef KV_VERB
#define KV_VERB(name) name,
enum class VerbWord : int {
    TitleLine_ = 0,
#include "shell/caption_words.inc"
    Count_
};
#undef KV_VERB
#define KV_VERB(name)
#undef KV_HX
#define KV_HX(name) name,
enum class HxWord : int {
    TitleLine_ = 0,
#include "shell/caption_words.inc"
    Count_
};
#undef KV_HX
#define KV_HX(name)
#undef KV_AIRCO
#define KV_AIRCO(name) name,
enum class AircoWord : int {
    TitleLine_ = 0,
#include "shell/caption_words.inc"
    Count_
};
#undef KV_AIRCO
#define KV_AIRCO(name)
#undef KV_ESIM
#define KV_ESIM(name) name,
enum class EsimWord : int {
    TitleLine_ = 0,
#include "shell/caption_words.inc"
    Count_
};
#undef KV_ESIM
#define KV_ESIM(name)
#undef KV_DRAW
#define KV_DRAW(name) name,
enum class DrawWord : int {
    TitleLine_ = 0,
#include "shell/caption_words.inc"
    Count_
};
#undef KV_DRAW
#define KV_DRAW(name)
#undef KV_PED
#define KV_PED(name) name,
enum class PedWord : int {
    TitleLine_ = 0,
#include "shell/caption_words.inc"
    Count_
};
#undef KV_CAPTION
#undef KV_VERB
#undef KV_HX
#undef KV_AIRCO
#undef KV_ESIM
#undef KV_DRAW
#undef KV_PED

// The names of the words, for tools and tests: CaptionName(Cap::MenuEnd) is
// "MenuEnd".
std::string_view CaptionName(Cap word);

// The 22 languages, as the language setting and the file extension.
inline constexpr std::array<std::string_view, 22> kLanguages = {
    "ARA", "BUL", "CRO", "CZH", "DAN", "ENG", "ESP", "FRA", "GER", "GRE", "HUN",
    "ITA", "NDL", "NOR", "POL", "POR", "ROM", "RUS", "SVK", "SWE", "TRK", "TWA"};
// The languages of the main menu's buttons.
inline constexpr std::array<std::string_view, 10> kMenuLanguages = {
    "ENG", "GER", "FRA", "ITA", "NDL", "POL", "POR", "RUS", "ESP", "SWE"};
// The name of a language in itself, for the language buttons.
std::string_view LanguageName(std::string_view code);

// One table: words by position, the title line at index 0. A word past the
// end of a short file is empty.
class WordTable {
public:
    const std::string& operator[](int index) const;
    std::size_t Size() const { return words_.size(); }
    void Assign(std::vector<std::string> words) { words_ = std::move(words); }
    bool Empty() const { return words_.empty(); }

private:
    std::vector<std::string> words_;
};

// The help table: topics opened by a record that begins with "#".
struct HelpTopic {
    std::string title;
    std::vector<std::string> lines;
};

struct Captions {
    std::string language;  // the language these tables were read for
    WordTable caption, verb, hx, airco, esim, draw, ped;
    std::vector<HelpTopic> help;

    const std::string& operator[](Cap w) const { return caption[static_cast<int>(w)]; }
    const std::string& operator[](VerbWord w) const { return verb[static_cast<int>(w)]; }
    const std::string& operator[](HxWord w) const { return hx[static_cast<int>(w)]; }
    const std::string& operator[](AircoWord w) const { return airco[static_cast<int>(w)]; }
    const std::string& operator[](EsimWord w) const { return esim[static_cast<int>(w)]; }
    const std::string& operator[](DrawWord w) const { return draw[static_cast<int>(w)]; }
    const std::string& operator[](PedWord w) const { return ped[static_cast<int>(w)]; }
    // The numbered message 1..61.
    const std::string& Message(int number) const;
};

inline constexpr int kMessageCount = 61;
inline constexpr int kHelpRecordLength = 128;

// Reads a caption file: lines as they stand, CR LF or LF, the first line kept
// at index 0 (the title that the system drops).
std::vector<std::string> ReadCaptionFile(const Workspace& ws, std::string_view fileName);

// Caption.<LANG> of the language setting.
void LoadCaptions(Workspace& ws);
// VerbCapt, HXCapt, AirCoCap, ESimCap, DrawCap, PEDcap of the language setting.
void LoadVerbCaptions(Workspace& ws);
void LoadOtherCaptions(Workspace& ws);
// Kelvhelp.<LANG>, records of 128 characters.
void LoadHelpTable(Workspace& ws);
std::vector<HelpTopic> ReadHelpTable(const Workspace& ws, std::string_view fileName);

// 0 when Caption.<code> has content; else message 61, a blank and the word
// for language are shown and 1 comes back.
int LanguageCheck(Workspace& ws, std::string_view code);
// True when Caption.<code> has content (no message).
bool LanguageAvailable(const Workspace& ws, std::string_view code);

// A change of language: check, set, reload Caption and VerbCapt and the help
// table. False (language unchanged) when the tables are missing.
bool ChangeLanguage(Workspace& ws, std::string_view code);

// The short names of the line sections 1 to 5 in a language.
std::array<std::string_view, 5> LineSectionShortNames(std::string_view language);

// The grammatical joints the screens put between words in some languages.
enum class Joint { Of, OfPlural, A, FittingsOfLine, OfInstallation, AsStandard };
std::string_view GrammaticalJoint(std::string_view language, Joint joint);

// A field label: the word, " /[", the unit, "]" and the label suffix " :".
std::string FieldLabel(std::string_view word, std::string_view unit);

}  // namespace kv
