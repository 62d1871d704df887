#include "lines/zeta.h"

#include <cmath>

#include "shell/files.h"
#include "shell/number_checks.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/workspace.h"

namespace kv {

namespace {
std::size_t At(int i) { return static_cast<std::size_t>(i); }
}  // namespace

ZetaTable& Zeta(Workspace& ws) { return ws.project.ZetaWert; }
const ZetaTable& Zeta(const Workspace& ws) { return ws.project.ZetaWert; }

void ReadZetaTable(RecordReader& in, ZetaTable& z) {
    for (int i = 1; i <= kZetaRead; ++i) in.Read(z[At(i)]);
}

void LoadZetaTable(Workspace& ws) {
    RecordReader in = OpenIn(ws, "KSIWERT.DAT");
    ReadZetaTable(in, Zeta(ws));
}

ZetaScreen OpenZetaScreen(Workspace& ws) {
    ZetaScreen s;
    s.open = true;
    const ZetaTable& z = Zeta(ws);
    double sum = 0;
    for (int i = 1; i <= kZetaWritten; ++i) {
        s.cell[At(i)] = NumberText(z[At(i)]);
        sum += z[At(i)];
    }
    if (sum == 0) zeta_mach(ws, s);
    return s;
}

void zeta_mach(Workspace& ws, ZetaScreen& screen) {
    ZetaTable& z = Zeta(ws);
    for (int i = 1; i <= kZetaWritten; ++i) {
        z[At(i)] = kZetaFactory[At(i)];
        screen.cell[At(i)] = NumberText(kZetaFactory[At(i)]);
    }
}

bool zeta_speich(Workspace& ws, ZetaScreen& screen) {
    static constexpr NumberRange kZetaValue{0, 1000};
    std::vector<std::string> messages;
    for (int i = 1; i <= kZetaWritten; ++i) {
        // An empty cell is refused too: it would be stored as 0.
        const std::string& cell = screen.cell[At(i)];
        CheckNumberField(ws, messages, ZetaRowCaption(ws, i), Trim(cell).empty() ? std::string_view("?") : cell,
                         kZetaValue);
    }
    if (!ShowFieldMessages(ws, messages)) return false;
    ZetaTable& z = Zeta(ws);
    for (int i = 1; i <= kZetaWritten; ++i) z[At(i)] = ToNumber(std::string_view(screen.cell[At(i)])).value;
    OutFile out = OpenOut(ws, "KSIWERT.DAT");
    for (int i = 1; i <= kZetaWritten; ++i) out.Write().Item(z[At(i)]).EndLine();
    if (!out.Close()) return false;
    screen.open = false;
    return true;
}

std::string ZetaRowCaption(const Workspace& ws, int index) {
    static constexpr std::array<Cap, 9> kRows = {Cap::PipeWord,        Cap::ColBallValves,      Cap::ColShutOffValves,
                                                 Cap::ColSuctionLiquidHx, Cap::ColCheckValves,  Cap::ColOilSeparator,
                                                 Cap::ColSightGlass,   Cap::ColSolenoidValves, Cap::ColFilterDrier};
    if (index >= 1 && index <= 8) return ws.captions[kRows[At(index)]];
    if (index == kZetaTube) return ws.captions[Cap::PipeWord] + "/10m";
    return {};
}

double SumZeta(ZetaTable& z, const Project& p, int line) {
    if (z[At(kZetaTube)] == 0) z[At(kZetaTube)] = 0.6;
    if (z[11] == 0) z[11] = 1.5;
    double sum = 0;
    if (line >= Suction && line <= Condensate)
        for (int k = 1; k <= 11; ++k)
            sum += z[At(k)] * ToNumber(std::string_view(p.Armatur.Cell(k, line))).value;
    const double length = ToNumber(std::string_view(p.Geometr.Cell(line, GeoLength))).value;
    // The tube counts per 10 m, cut to two decimals; the small guard keeps
    // 0.6 x 12 m at 0.72 where binary rounding would cut it to 0.71, as the
    // project sheet does.
    const double term = std::floor(z[At(kZetaTube)] * length * 10.0 + 1e-9);
    if (std::isfinite(term)) sum += term / 100.0;
    return sum;
}

}  // namespace kv
