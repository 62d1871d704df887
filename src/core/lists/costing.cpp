#include "lists/costing.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "catalogue/selection.h"
#include "lines/pipe_table.h"
#include "lists/list_generation.h"
#include "lists/list_rows.h"
#include "lists/list_screen.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

namespace {

constexpr std::size_t kMaxPartRows = 500;

double Num(std::string_view s) { return ToNumber(Trim(s)); }
std::string Text(double v) { return NumberText(v); }

// int(100 x v) / 100: the cut to cents of the run.
double Cents(double v) { return std::trunc(100 * v) / 100; }

bool Contains(std::string_view s, std::string_view part) { return s.find(part) != std::string_view::npos; }

std::string FamilyOf(std::string_view size) {
    // Later matches win: K65, x, /, ', DN, GF.
    std::string family = "K1";
    if (Contains(size, "K65")) family = "K65";
    if (Contains(size, "x") && family != "K65") family = "K1";
    if (Contains(size, "/") || Contains(size, "'")) family = "K2";
    if (Contains(size, "DN")) family = "S3";
    if (Contains(size, "GF")) family = "P5";
    return family;
}

// The files the run reads: the working lists, or a stored project's
// companions (its wiring from the fittings list's companion, as settled).
struct RunFiles {
    std::string units, unitsChange, parts, pipes, fittings, wiring;
};
RunFiles FilesOf(const std::string& stored) {
    if (stored.empty())
        return {std::string(lists::kUnits),  std::string(lists::kUnitsChange), std::string(lists::kParts),
                std::string(lists::kPipes),  std::string(lists::kFittings),    std::string(lists::kWiring)};
    const std::string stem = stored.size() > 4 ? stored.substr(0, stored.size() - 4) : stored;
    return {stem + ".alt", stem + ".atd", stem + ".vlt", stem + ".rlt", stem + ".flt", stem + ".vlt"};
}

ListFile Read(const Workspace& ws, const std::string& file, int head, int items) {
    return ParseListText(ReadWholeFile(ResolveName(ws, file)), head, items);
}

// The money items of a row priced per unit: time t minutes, purchase P,
// labour selling price L and selling price V per unit, quantity q.
void PriceRow(CostRow& row, double q, double t, double P, double L, double V, bool wholeMaterial, double R) {
    row[7] = Text(t);
    row[8] = Text(P);
    row[9] = Text(std::trunc(R * t * q * 100 / 60) / 100);
    row[10] = Text(wholeMaterial ? std::trunc(P * q * 100 / 100) : Cents(q * P));
    row[11] = Text(L);
    row[12] = Text(V);
    if (q > 0 && V > 0) row[13] = Text(std::trunc(V * q * 100 + 0.005) / 100);
}

}  // namespace

double BasicRates::R() const { return Num(record[0]); }
double BasicRates::SL() const { return Num(record[1]); }
double BasicRates::SM() const { return Num(record[2]); }

BasicRates ReadBasicRates(const Workspace& ws) {
    BasicRates r;
    RecordReader in = OpenIn(ws, "GmontZ.dat");
    for (std::string& item : r.record)
        if (!in.Read(item)) break;
    return r;
}

bool WriteBasicRates(const Workspace& ws, const BasicRates& r) {
    RecordWriter w;
    for (const std::string& item : r.record) w.Item(item).EndLine();
    return WriteListText(ws, "GmontZ.dat", w.Text());
}

TimeMatrix ReadTimeMatrix(const Workspace& ws) {
    TimeMatrix m{};
    auto fill = [&](std::string_view file, std::size_t first, std::size_t rows) {
        RecordReader in = OpenIn(ws, file);
        for (std::size_t r = first; r < first + rows; ++r)
            for (double& v : m[r])
                if (!in.Read(v)) return;
    };
    fill("KmontZ.dat", 0, 14);
    fill("AmontZ.dat", 14, 4);
    return m;
}

int SizeBand(double d) {
    if (d <= 16) return 1;
    if (d <= 28) return 2;
    if (d <= 54) return 3;
    if (d <= 110) return 4;
    return 5;
}

int CapacityBandOf(double kW) {
    if (kW <= 5) return 1;
    if (kW <= 15) return 2;
    if (kW <= 30) return 3;
    if (kW <= 60) return 4;
    return 5;
}

std::vector<PartRow> ReadPartTable(const Workspace& ws, std::string_view file) {
    std::vector<PartRow> rows;
    RecordReader in = OpenIn(ws, file);
    while (rows.size() < kMaxPartRows) {
        PartRow r{};
        if (!in.Read(r[0]) || Trim(r[0]).empty()) break;
        for (std::size_t i = 1; i < r.size(); ++i) in.Read(r[i]);
        rows.push_back(std::move(r));
    }
    return rows;
}

std::string PartTableFor(std::string_view sizeText, std::string_view kind) {
    std::string family = FamilyOf(sizeText);
    // Oil traps and double risers come in copper and steel only.
    if ((kind == "OelS" || kind == "DblR") && family != "K1" && family != "K2") family = "ST";
    return family + std::string(kind) + ".dat";
}

std::string PipeTableFor(std::string_view sizeText) {
    const std::string family = FamilyOf(sizeText);
    if (family == "K65") return "RohrK65.DAT";
    if (family == "K2") return "RohrIN.DAT";
    if (family == "S3") return "RohrDS.DAT";
    if (family == "P5") return "ROHRPII.DAT";
    return "RohrDM.DAT";
}

double PriceFromRates(const BasicRates& r, double minutes, double purchase, int selector) {
    if (selector == 1) return std::trunc((100 + r.SL()) * r.R() * minutes / 60) / 100;
    return std::trunc((100 + r.SM()) * purchase + (100 + r.SL()) * r.R() * minutes / 60) / 100;
}

std::string DetailPriceFile(Workspace& ws, std::string_view sizeText, int tableMode, std::string_view language) {
    std::string size(Trim(sizeText));
    const std::size_t x = size.find('x');
    const std::string head = x == std::string::npos ? size : size.substr(0, x);
    std::string prefix = "ST";
    if (Contains(head, "GF")) prefix = "GF";
    else if (x != std::string::npos) prefix = "KS";
    else if (Contains(head, "/") || Contains(head, "'")) prefix = "KI";
    if (tableMode >= 650 && tableMode <= 652) prefix += "o";
    if (tableMode >= 660 && tableMode <= 662) prefix += "d";
    // The diameter: an inch size by the inch series, else the number of the
    // size in front of its first "x".
    double d = 0;
    if (prefix.rfind("KI", 0) == 0) {
        PipeTable inch;
        LoadPipeTable(ws, "RohrIN.DAT", inch, false);
        d = ToNumber(ConnectionMillimetres(ws, inch, head));
    } else {
        std::string digits;
        for (char c : head)
            if ((c >= '0' && c <= '9') || c == '.') digits += c;
        d = ToNumber(digits);
    }
    return prefix + std::to_string(WholeNumberLong(d)) + "." + std::string(language);
}

std::vector<CostRow> RunCosting(const Workspace& ws, CostingMode mode, const std::string& stored) {
    const bool costing = mode == CostingMode::Costing;
    const BasicRates rates = ReadBasicRates(ws);
    const double R = rates.R(), SL = rates.SL();
    const TimeMatrix matrix = ReadTimeMatrix(ws);
    const std::array<bool, 5> on = ReadCostingChoice(ws);
    const RunFiles files = FilesOf(stored);
    const Captions& c = ws.captions;
    std::vector<CostRow> out;

    std::array<std::string, 14> fittingCaptions;
    for (std::size_t i = 0; i < 14; ++i) fittingCaptions[i] = KindListCaption(ws, kFittingTimeKinds[i]);
    std::array<std::string, 4> unitCaptions;
    for (std::size_t i = 0; i < 4; ++i) unitCaptions[i] = KindListCaption(ws, kUnitTimeKinds[i]);
    std::map<std::string, std::vector<PartRow>> partTables;
    auto partTable = [&](const std::string& file) -> const std::vector<PartRow>& {
        auto it = partTables.find(file);
        if (it == partTables.end()) it = partTables.emplace(file, ReadPartTable(ws, file)).first;
        return it->second;
    };
    std::map<std::string, ListFile> pipeTables;
    auto pipeTable = [&](const std::string& file) -> const ListFile& {
        auto it = pipeTables.find(file);
        if (it == pipeTables.end()) it = pipeTables.emplace(file, Read(ws, file, 2, 15)).first;
        return it->second;
    };
    PipeTable inch;
    bool inchRead = false;
    auto diameter = [&](const std::string& text) {
        if (text.find_first_of("/'") == std::string::npos) return Num(text);
        if (!inchRead) LoadPipeTable(const_cast<Workspace&>(ws), "RohrIN.DAT", inch, false);
        inchRead = true;
        return Num(ConnectionMillimetres(ws, inch, text));
    };

    // Units and parts.
    int timeRow = 0;
    for (int list = 0; list < 2; ++list) {
        if (!on[static_cast<std::size_t>(list)]) continue;
        const bool units = list == 0;
        const ListFile f = Read(ws, units ? files.units : files.parts, units ? lists::kHeader : lists::kPartsHeader,
                                lists::kUnitRow);
        RecordReader blocks(units ? ReadWholeFile(ResolveName(ws, files.unitsChange)) : std::string());
        for (const auto& r : f.rows) {
            CostRow row{};
            row[0] = r[7];
            row[1] = "Stk";
            row[2] = r[1];
            row[3] = r[3];
            row[4] = r[2];
            row[5] = r[4];
            row[6] = r[5];
            if (costing) {
                int band = 1;
                if (units) {
                    double cap = 0;
                    if (!Trim(r[0]).empty())
                        for (int i = 0; i < lists::kChangeSaved; ++i) blocks.Read(cap);
                    band = CapacityBandOf(cap);
                    for (std::size_t i = 0; i < 4; ++i)
                        if (r[0] == unitCaptions[i]) timeRow = 14 + static_cast<int>(i);
                } else {
                    band = SizeBand(diameter(r[4]));
                    for (std::size_t i = 0; i < 14; ++i)
                        if (r[0] == fittingCaptions[i]) timeRow = static_cast<int>(i);
                }
                const double t = matrix[static_cast<std::size_t>(timeRow)][static_cast<std::size_t>(band - 1)];
                const double P = Num(r[8]);
                const double L = std::trunc(100 * (t / 60 * R * (SL + 100) / 100)) / 100;
                PriceRow(row, Num(r[7]), t, P, L, L + P, true, R);
            }
            out.push_back(std::move(row));
        }
    }

    // Pipe runs, with a row of insulation behind an insulated one.
    if (on[2]) {
        for (const auto& r : Read(ws, files.pipes, lists::kHeader, lists::kPipeRow).rows) {
            const std::string size(Trim(r[2]));
            const bool bend = size.rfind("90° ", 0) == 0;
            CostRow row{};
            row[0] = r[1];
            row[1] = bend ? "Stk" : "m";
            row[2] = bend ? r[0] + " " + size : size + " " + c[Cap::PipeWord];
            row[3] = ClassifyPipeName(ws, size, 3);
            row[5] = size;
            row[6] = r[0];
            if (costing && !bend) {
                for (const auto& p : pipeTable(PipeTableFor(size)).rows)
                    if (Trim(p[0]) == size) {
                        PriceRow(row, Num(r[1]), Num(p[6]), Num(p[7]), Num(p[8]), Num(p[9]), false, R);
                        row[10] = Text(std::trunc(100 * Num(r[1]) * Num(p[7])) / 100);
                        break;
                    }
            }
            out.push_back(row);
            if (!bend && !Trim(r[3]).empty() && Trim(r[3]) != "0") {
                CostRow ins{};
                ins[0] = r[1];
                ins[1] = "m";
                ins[2] = size + " " + c[Cap::Insulation];
                ins[3] = std::string(Trim(r[3])) + " mm";
                ins[5] = size;
                ins[6] = c[Cap::Insulation];
                out.push_back(ins);
            }
        }
    }

    // Tees and reducers.
    if (on[3]) {
        const std::string tee = c[Cap::Tee], reducer = c[Cap::Reducer];
        for (const auto& r : Read(ws, files.fittings, lists::kHeader, lists::kFittingRow).rows) {
            const std::string designation(Trim(r[1]));
            const std::string word = designation.substr(0, designation.find(' '));
            const std::string sizePart = designation.find(' ') == std::string::npos ? std::string()
                                                                                    : designation.substr(designation.find(' ') + 1);
            CostRow row{};
            const double q = Num(r[5]);
            row[0] = r[5];
            row[1] = "Stk";
            row[2] = designation;
            row[3] = std::string(Trim(r[2])).substr(0, std::string(Trim(r[2])).find(' '));
            row[5] = r[2];
            row[6] = r[0];
            if (costing) {
                const PartRow* hit = nullptr;
                bool isTee = false;
                if (word == tee) {
                    isTee = true;
                    const double d = Num(r[3]);
                    for (const PartRow& p : partTable(PartTableFor(r[2], "Tstk")))
                        if (std::fabs(Num(p[0]) - d) < 0.01) { hit = &p; break; }
                } else if (word == reducer) {
                    const std::size_t dash = sizePart.find('-');
                    if (dash != std::string::npos) {
                        double a = Num(sizePart.substr(0, dash)), b = Num(sizePart.substr(dash + 1));
                        if (a > b) std::swap(a, b);
                        for (const PartRow& p : partTable(PartTableFor(r[2], "_RED"))) {
                            const std::string s(Trim(p[0]));
                            const std::size_t m = s.find('-');
                            if (m == std::string::npos) continue;
                            // The table may hold either order; both sides compare smaller first.
                            double x = Num(s.substr(0, m)), y = Num(s.substr(m + 1));
                            if (x > y) std::swap(x, y);
                            if (std::fabs(x - a) < 0.01 && std::fabs(y - b) < 0.01) { hit = &p; break; }
                        }
                    }
                }
                if (hit) {
                    const double t = Num((*hit)[4]), P = Num((*hit)[5]);
                    row[4] = (*hit)[2];
                    const double L = isTee ? Num((*hit)[6]) : std::trunc(100 * (t / 60 * R * (SL + 100) / 100)) / 100;
                    const double V = isTee ? Num((*hit)[7]) : L + P;
                    PriceRow(row, q, t, P, L, V, false, R);
                    row[10] = Text(std::trunc(100 * q * P) / 100);
                }
            }
            out.push_back(row);
        }
    }

    // Cables: quantity times length, to a tenth.
    if (on[4]) {
        for (const auto& r : Read(ws, files.wiring, lists::kHeader, lists::kPipeRow).rows) {
            if (Trim(r[0]).empty() && Trim(r[1]).empty()) continue;
            CostRow row{};
            const double q = std::max(1.0, Num(r[4]));
            row[0] = Text(std::trunc(10 * q * Num(r[1])) / 10);
            row[1] = "m";
            row[2] = r[2] + " " + c[Cap::Cable];
            row[3] = c[Cap::Cable] + " " + c[Cap::Unit];
            row[5] = r[2];
            row[6] = r[0];
            out.push_back(row);
        }
    }
    return out;
}

bool WriteCostRows(const Workspace& ws, CostingMode mode, const std::vector<CostRow>& rows) {
    RecordWriter w;
    for (const CostRow& r : rows) {
        for (const std::string& item : r) w.Item(item);
        w.EndLine();
    }
    return WriteListText(ws, mode == CostingMode::Costing ? "KV_Calc.dat" : "Export.dat", w.Text());
}

std::vector<CostRow> ReadCostRows(const Workspace& ws, CostingMode mode) {
    std::vector<CostRow> rows;
    const ListFile f = Read(ws, mode == CostingMode::Costing ? "KV_Calc.dat" : "Export.dat", 0, 14);
    for (const auto& r : f.rows) {
        CostRow row{};
        for (std::size_t i = 0; i < 14; ++i) row[i] = r[i];
        rows.push_back(std::move(row));
    }
    return rows;
}

double Money(double x) { return std::trunc(100 * x + 0.005) / 100; }

CostSums RecalculateCosts(std::vector<CostRow>& rows, const BasicRates& rates) {
    CostSums s;
    const double R = rates.R(), SL = rates.SL(), SM = rates.SM();
    for (CostRow& row : rows) {
        if (Trim(row[0]).empty() && Trim(row[7]).empty() && Trim(row[8]).empty()) continue;
        const double q = Num(row[0]), t = Num(row[7]), P = Num(row[8]);
        const double Lc = t / 60 * R, Lv = Lc * (100 + SL) / 100, Mv = P * (100 + SM) / 100;
        row[9] = Text(Money(q * Lc));
        row[10] = Text(Money(q * P));
        row[11] = Text(Money(q * Lv));
        row[12] = Text(Money(q * Mv));
        row[13] = Text(Money(q * (Lv + Mv)));
        s.labourCost += q * Lc;
        s.materialCost += q * P;
        s.sales += q * (Lv + Mv);
        s.minutes += t * q;
    }
    s.margin = s.sales - (s.labourCost + s.materialCost);
    s.marginPercent = s.sales != 0 ? std::trunc(s.margin * 10000 / s.sales) / 100 : 0.0;
    s.hours = WholeNumber(s.minutes / 60);
    s.restMinutes = WholeNumber(60 * (s.minutes / 60 - s.hours));
    return s;
}

std::vector<CostRow> MergeEqualRows(const std::vector<CostRow>& rows, bool costing) {
    std::vector<CostRow> out;
    for (CostRow r : rows) {
        for (std::size_t i = 0; i < 14; ++i) r[i] = std::string(Trim(r[i]));
        if (!costing)
            for (std::size_t i = 7; i < 14; ++i) r[i].clear();
        if (!out.empty()) {
            CostRow& kept = out.back();
            if (kept[2] == r[2] && kept[3] == r[3] && kept[1] == r[1]) {
                kept[0] = Text(Num(kept[0]) + Num(r[0]));
                continue;
            }
        }
        out.push_back(std::move(r));
    }
    return out;
}

std::string ExportText(std::string_view target, const std::vector<CostRow>& rows) {
    RecordWriter w;
    if (target == kExportTargets[0]) {
        std::string text;
        for (const CostRow& r : rows) {
            for (std::size_t i = 0; i < 7; ++i) text += r[i] + "\t";
            text += "\r";
        }
        return text;
    }
    if (target == kExportTargets[1]) {
        for (const CostRow& r : rows) {
            std::string line;
            for (std::size_t i = 0; i < 6; ++i) line += (i ? "," : "") + std::string(Trim(r[i]));
            w.Item(line).EndLine();
        }
        return w.Take();
    }
    for (const CostRow& r : rows) {
        for (std::size_t i = 0; i < 7; ++i) w.Item(r[i]);
        w.EndLine();
    }
    return w.Take();
}

bool WriteExportFile(const std::string& path, std::string_view target, const std::vector<CostRow>& rows) {
    return WriteFileAtomic(path, ExportText(target, rows));
}

std::array<std::string, 2> ReadExportChoice(const Workspace& ws) {
    std::array<std::string, 2> c{};
    RecordReader in = OpenIn(ws, "ExPar.dat");
    in.Read(c[0]);
    in.Read(c[1]);
    if (Trim(c[0]).empty()) c[0] = std::string(kExportTargets[0]);
    return c;
}

bool WriteExportChoice(const Workspace& ws, const std::array<std::string, 2>& choice) {
    RecordWriter w;
    w.Item(choice[0]).EndLine().Item(choice[1]).EndLine();
    return WriteListText(ws, "ExPar.dat", w.Text());
}

std::array<std::string, 9> ReadSupplier(const Workspace& ws) {
    std::array<std::string, 9> s{};
    RecordReader in = OpenIn(ws, "Supplier.dat");
    for (std::string& item : s)
        if (!in.Read(item)) break;
    return s;
}

namespace {

// Name, first and second address part joined by ", ", the third behind a
// blank; parts the file leaves empty are left out.
std::string SupplierAddress(const std::array<std::string, 9>& s) {
    std::string out;
    for (const std::string* part : {&s[0], &s[2], &s[3]})
        if (!Trim(*part).empty()) out += (out.empty() ? "" : ", ") + std::string(Trim(*part));
    if (!Trim(s[4]).empty()) out += (out.empty() ? "" : " ") + std::string(Trim(s[4]));
    return out;
}

// Characters a mail address must not carry as they stand.
std::string UrlText(std::string_view text) {
    static const char* hex = "0123456789ABCDEF";
    std::string out;
    for (unsigned char ch : text) {
        if (ch == ' ' || ch == '&' || ch == '#' || ch == '?' || ch == '%' || ch == '"' || ch == '+' || ch < 0x20) {
            out += '%';
            out += hex[ch >> 4];
            out += hex[ch & 15];
        } else {
            out += static_cast<char>(ch);
        }
    }
    return out;
}

std::vector<std::pair<std::string, std::string>> ProjectPairs(const Workspace& ws) {
    const Captions& c = ws.captions;
    const Project& p = ws.project;
    return {{c[Cap::ProjectWord], p.ProjektDatei},
            {c[Cap::ProjectWord], p.ProjektNam},
            {c[Cap::Description], p.ProBeschr},
            {c[Cap::OrderNumber], p.AuftrGNo},
            {c[Cap::Date], DateText(ws.settings.DatumFormat)},
            {c[Cap::Refrigerant], p.KaelteM}};
}

}  // namespace

std::string EnquiryMailUrl(const Workspace& ws, const std::vector<CostRow>& rows) {
    const std::array<std::string, 9> s = ReadSupplier(ws);
    const std::string br = "%0A";
    std::string body = UrlText("E-Mail Anfrage an:  " + SupplierAddress(s)) + br + br;
    for (const auto& [label, value] : ProjectPairs(ws)) body += UrlText(label + "    " + value) + br + br;
    for (const CostRow& r : rows) {
        std::string line;
        for (std::size_t i = 0; i < 4; ++i) line += (i ? " " : "") + std::string(Trim(r[i]));
        body += UrlText(line) + br + br;
    }
    return "mailto:" + std::string(Trim(s[8])) + "?Subject=" + UrlText("Preisanfrage/Bestellung:") + "&Body=" + body;
}

WorkbookContent EnquiryWorkbook(const Workspace& ws, const std::vector<CostRow>& rows) {
    WorkbookContent w;
    const auto pairs = ProjectPairs(ws);
    const std::string suffix = ws.labelSuffix;
    const std::array<std::pair<const char*, const char*>, 6> places = {
        {{"C2", "C3"}, {"C5", "C6"}, {"D5", "D6"}, {"C8", "C9"}, {"D8", "D9"}, {"C11", "C12"}}};
    for (std::size_t i = 0; i < places.size(); ++i) {
        w.head.push_back({places[i].first, pairs[i].first + suffix});
        w.head.push_back({places[i].second, pairs[i].second});
    }
    const std::array<std::string, 9> s = ReadSupplier(ws);
    w.head.push_back({"C14", "E-Mail Anfrage an:"});
    w.head.push_back({"C15", SupplierAddress(s)});
    w.head.push_back({"C16", "Phone: " + s[6]});
    w.head.push_back({"C17", "Fax: " + s[7]});
    w.head.push_back({"C18", s[8]});
    for (const CostRow& r : rows) {
        std::array<std::string, 7> cells;
        for (std::size_t i = 0; i < 7; ++i) cells[i] = r[i];
        w.rows.push_back(cells);
    }
    return w;
}

std::string WorkbookPath(const Workspace& ws) {
    std::string dir = ws.project.ProjektVerz;
    if (!dir.empty() && dir.back() != '/' && dir.back() != '\\') dir += '/';
    std::string name = ws.project.ProjektNam.empty() ? std::string("Kelvaris") : ws.project.ProjektNam;
    for (char& ch : name)
        if (ch == '/' || ch == '\\' || ch == ':' || ch == '*' || ch == '?' || ch == '"' || ch == '<' || ch == '>' || ch == '|')
            ch = '_';
    return (dir.empty() ? ws.DataDir().string() + "/" : dir) + name + "_01.xlsx";
}

}  // namespace kv
