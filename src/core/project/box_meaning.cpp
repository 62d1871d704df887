#include "project/box_meaning.h"

#include <string_view>

#include "shell/captions.h"
#include "shell/numbers.h"
#include "shell/workspace.h"

namespace kv {

std::vector<std::string> CompressorBoxList(const Captions& c) {
    const std::string open = c[Cap::CompressorDriveFirst], semi = c[Cap::CompressorDriveSecond],
                      herm = c[Cap::CompressorDriveThird];
    const std::string recip = c[Cap::CompressorKindFirst], screw = c[Cap::CompressorKindSecond],
                      scroll = c[Cap::CompressorKindThird];
    return {open + " - " + recip, open + " - " + screw,   semi + " - " + recip, semi + " - " + screw,
            herm + " - " + recip, herm + " - " + scroll, herm + " - " + screw,
            c[Cap::CompressorRollingPiston], c[Cap::CompressorTurbo]};
}

std::vector<std::string> ValveBoxList(const Captions& c) {
    const std::string valve = c[EsimWord::ValveWord];
    return {valve + " " + c[EsimWord::ValveThermostatic], valve + " " + c[EsimWord::ValveThermostaticMop],
            valve + " " + c[EsimWord::ValveElectronicPulse], valve + " " + c[EsimWord::ValveElectronicStepper]};
}

namespace {

// Positions in the compressor box of the semihermetic reciprocating and screw
// machines, which a bare principle word of an old file stands for.
constexpr int kSemiReciprocating = 2, kSemiScrew = 3;

int EntryIn(const Captions& c, BoxKind kind, std::string_view text) {
    if (text.empty()) return -1;
    const auto list = kind == BoxKind::Compressor ? CompressorBoxList(c) : ValveBoxList(c);
    for (std::size_t i = 0; i < list.size(); ++i)
        if (Trim(std::string_view(list[i])) == text) return static_cast<int>(i);
    if (kind == BoxKind::Compressor) {
        if (text == Trim(std::string_view(c[Cap::CompressorKindFirst]))) return kSemiReciprocating;
        if (text == Trim(std::string_view(c[Cap::CompressorKindSecond]))) return kSemiScrew;
    }
    return -1;
}

}  // namespace

int BoxEntryOf(const Workspace& ws, BoxKind kind, const std::string& text) {
    const std::string_view t = Trim(std::string_view(text));
    if (const int i = EntryIn(ws.captions, kind, t); i >= 0) return i;
    for (std::string_view language : kLanguages) {
        if (language == ws.captions.language) continue;
        Captions other;
        const std::string code(language);
        if (kind == BoxKind::Compressor) other.caption.Assign(ReadCaptionFile(ws, "Caption." + code));
        else other.esim.Assign(ReadCaptionFile(ws, "ESimCap." + code));
        if (const int i = EntryIn(other, kind, t); i >= 0) return i;
    }
    return -1;
}

std::string BoxTextInCurrentLanguage(const Workspace& ws, BoxKind kind, const std::string& text) {
    const int i = BoxEntryOf(ws, kind, text);
    if (i < 0) return text;
    const auto list = kind == BoxKind::Compressor ? CompressorBoxList(ws.captions) : ValveBoxList(ws.captions);
    return list[static_cast<std::size_t>(i)];
}

}  // namespace kv
