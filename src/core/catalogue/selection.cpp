#include "catalogue/selection.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "catalogue/catalogue.h"
#include "catalogue/record_file.h"
#include "cycle/scheme_screen.h"
#include "lines/pipe_table.h"
#include "refrigerant/registry.h"
#include "refrigerant/state_points.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

namespace {

double Finite(double v) { return std::isfinite(v) ? v : 0.0; }

bool SizeIsEmpty(std::string_view size) {
    const std::string_view s = Trim(size);
    return s.empty() || s == "0";
}

bool StartsWithW(std::string_view type) {
    const std::string_view t = TrimLeft(type);
    return !t.empty() && (t.front() == 'w' || t.front() == 'W');
}

// A difference as typed; empty or unreadable gives `fallback`.
double DifferenceOr(std::string_view typed, double fallback) {
    const double v = ToNumber(Trim(typed));
    return v > 0 ? v : fallback;
}

}  // namespace

struct SeriesRows::Reader {
    RecordFileReader file;
    std::string record;
};

SeriesRows::SeriesRows(const Workspace& ws, std::string_view base, int position)
    : in_(std::make_unique<Reader>(Reader{RecordFileReader(ResolveName(ws, RecordFileName(base)), kArticleLength), {}})),
      position_(position), ended_(position < 1) {
    rows_.reserve(8);
}
SeriesRows::~SeriesRows() = default;
SeriesRows::SeriesRows(SeriesRows&&) noexcept = default;
SeriesRows& SeriesRows::operator=(SeriesRows&&) noexcept = default;

const SeriesArticle* SeriesRows::Row(std::size_t i) {
    while (rows_.size() <= i && !ended_) {
        const long long number = position_ + static_cast<long long>(rows_.size());
        if (rows_.size() >= static_cast<std::size_t>(kSeriesRows) || !in_->file.Get(number, in_->record)) {
            ended_ = true;
            break;
        }
        Article a = DecodeArticle(in_->record);
        if (EndsSeries(a)) {
            ended_ = true;
            break;
        }
        rows_.push_back({number, std::move(a)});
    }
    return i < rows_.size() ? &rows_[i] : nullptr;
}

std::string DefaultConnection(int kind) {
    switch (kind) {
    case 0: return "25";
    case 2: case 11: return "31";
    case 3: return "33";
    case 4: return "30";
    case 5: return "35";
    case 6: return "34";
    case 12: return "22/28";
    case 14: case 16: return "32";
    case 15: return "24";
    default: return "28";
    }
}

int KindGroupCode(int kind) {
    switch (kind) {
    case 2: case 11: return 100;
    case 12: return 550;
    case 13: case 23: case 33: return 600;
    case 14: return 650;
    case 15: case 16: case 17: case 18: return (kind - 1) * 50;
    default: return kind >= 0 && kind <= 10 ? kind * 50 : -1;
    }
}

int KindSlot(int kind) {
    const int code = KindGroupCode(kind);
    for (int slot = 1; slot <= kSlotCount; ++slot)
        if (SlotCode(slot) == code) return slot;
    return 0;
}

bool IsMainUnitKind(int kind) {
    return kind == 12 || kind == 13 || kind == 14 || kind == 17 || kind == 23 || kind == 33;
}

int ParkPosition(int kind) {
    switch (kind) {
    case 13: case 23: case 33: case 1: case 11: case 21: return 1;
    case 12: case 0: return 2;
    case 14: case 2: return 3;
    default: return 4;
    }
}

bool IsElectronicValve(std::string_view type) {
    static const char* const kNames[] = {"AKVH", "AKV", "ETS", "E2V", "E3V", "E4V", "E5V", "E6V", "E7V",
                                         "EX0",  "EX2", "EX4", "EX5", "EX6", "EX7", "EX8", "E²V", "MVL"};
    const std::string t = UpperAscii(Trim(type));
    for (const char* n : kNames)
        if (t.rfind(n, 0) == 0) return true;
    return false;
}

double HeatExchangerDuty(double first) {
    double duty = std::floor(Finite(first) * 20 + 1e-9) / 20;
    if (duty > 20) duty = std::floor(duty);
    return duty;
}

PlantDuty DutyOf(const Workspace& ws) {
    const CycleState& c = ws.cycle;
    PlantDuty d;
    d.fluid = std::string(Trim(ws.project.KaelteM));
    d.plantType = UpperAscii(Trim(ws.project.AnlagenTyp));
    d.pCond = c.pCond;
    d.pEvap = c.pEvap;
    d.tEvapK = c.tEvapK;
    d.tCondK = c.tCondK;
    d.massFlow = c.massFlow;
    d.dpLiquid = c.dpLiquid;
    d.dpSuction = c.dpSuction;
    d.dpDischarge = c.dpDischarge;
    d.partLoad = ws.project.PartLoadPercent;
    d.dtVerd = ws.project.dtVerd;
    d.dtKond = ws.project.dtKond;
    d.brine = d.plantType == "SOLE";
    d.brineEvaporator = d.brine;
    if (auto e = FindRefrigerant(d.fluid)) {
        d.designPressureRatio = e->designPressureRatio;
        d.charB = e->charB;
        d.charC = e->charC;
        d.charD = e->charD;
        d.charE = e->charE;
    }
    return d;
}

namespace {

// Valves and every kind without a rule of its own: needed kv, drop and load
// share at the minimum drop.
void RateValve(const PlantDuty& d, const SelectRequest& q, const Article& a, RatedRow& r) {
    const double m = Finite(q.first), rho = Finite(q.second);
    const double V = a.Number(field::Size), R1 = a.Number(field::Rated1), R2 = a.Number(field::Rated2);
    if (rho > 0 && R2 > 0) r.kvNeeded = Cut(3600 * std::sqrt(m * m * 100000 / (rho * 1000 * R2 * 100)), 2);
    if (V != 0 && rho > 0) r.drop = (m * m * 100000 / (1000 * (V / 3600) * (V / 3600) * rho)) / 100;
    if (r.drop > 0) r.share = std::sqrt(std::max(R2, 0.0) / r.drop) * 100;
    double partLoad = d.partLoad;
    if (partLoad <= 0 || q.kind == 5) partLoad = 100;
    if (d.brine) {
        const double conn = a.Number(field::Connection), line = ToNumber(Trim(q.lineSize));
        if (line > 0 && conn >= line) {
            r.passes = true;
            return;
        }
    }
    const bool dropOk = r.drop < R1;
    const bool loadOk = !(r.drop < R2) && !(r.share > partLoad);
    // The first row is never refused for its load, nor a first row that
    // states no maximum drop: a line never goes without its valve.
    r.passes = r.row == 1 ? (dropOk || R1 == 0) : (dropOk && loadOk);
}

void RateCompressor(const PlantDuty& d, const SelectRequest& q, const Article& a, double lambda, RatedRow& r) {
    const double V = a.Number(field::Size), rho = Finite(q.second);
    double m = Finite(q.first);
    if (d.plantType == "VERB") m *= std::clamp(d.partLoad, 0.0, 100.0) / 100;
    if (!(lambda > 0) || !std::isfinite(lambda)) lambda = 0.75;
    if (rho > 0) r.requiredSweptVolume = Cut(0.95 * 3600 * m / (rho * lambda), 1);
    r.capacity = r.requiredSweptVolume;
    r.passes = r.requiredSweptVolume > 0 && r.requiredSweptVolume < V;
}

void RateHeatExchanger(const PlantDuty& d, const SelectRequest& q, const Article& a, RatedRow& r) {
    const int unit = static_cast<int>(a.Number(field::UnitCode));
    const int kind = q.kind;
    double rated = 8, design = 0, factor = 1;
    if (kind == 14) {
        rated = 15;
        design = DifferenceOr(d.dtKond, rated);
        factor = CapacityFactorByGroup(d.fluid, d.tCondK);
    } else if (kind == 23) {
        rated = unit == 2 ? 6.8 : 14;
        design = DifferenceOr(d.dtVerd, rated);
        if (unit != 2) {
            design = 6.8;
            factor = 1;
        } else {
            factor = EvaporatorFactorByGroup(d.fluid, (d.tEvapK + d.tCondK) / 2, design, kind, unit,
                                             d.brineEvaporator);
        }
    } else {
        design = DifferenceOr(d.dtVerd, rated);
        factor = EvaporatorFactorByGroup(d.fluid, d.tEvapK, design, kind, unit, d.brineEvaporator);
    }
    if (StartsWithW(a.Field(field::Type))) {
        factor = 1;
        design = rated;
    }
    factor = Finite(factor);
    if (factor <= 0) factor = 1;
    r.capacity = Finite(a.Number(field::Rated1) / (rated / design) * factor);
}

// Steps shared by the expansion valve and kinds 8 to 10: the rated figure
// with its fluid factor, times the correction and the line factor.
double RatedValveCapacity(const PlantDuty& d, const Article& a, double correction, double g) {
    const double R1 = a.Number(field::Rated1), R2 = a.Number(field::Rated2);
    const double rated = R2 != 0 ? R2 : R1 * d.charB;
    return Finite(rated * correction * g);
}

void RateExpansionValve(const PlantDuty& d, const SelectRequest& q, const Article& a, RatedRow& r) {
    const double m = Finite(q.first), rho = Finite(q.second);
    const double dp = d.pCond - d.pEvap;
    double share = 1;
    if (IsElectronicValve(a.Field(field::Type))) {
        const std::string& conn = a.Field(field::Connection);
        const std::size_t x = conn.find_first_of("xX");
        const double dPort = ToNumber(Trim(std::string_view(conn).substr(0, x)));
        const double area = 3.1415 * (dPort / 1000) * (dPort / 1000) / 4;
        if (rho > 0 && area > 0) r.velocity = std::floor(100.5 * m / (rho * area)) / 100;
        share = 0.75;
    }
    const double a1 = d.charC > 0 && dp > 0 ? std::sqrt(dp / d.charC) : 1;
    double b = d.charD > 0 && d.massFlow > 0 ? (m / d.charD) / d.massFlow : 0;
    double correction;
    if (d.tEvapK >= 263.15) {
        correction = 0.97 * a1 * (b != 0 ? b : 1);
    } else {
        const double k = IsCo2(d.fluid) ? 0.15 : 1;
        const double c = std::max(0.65, 1 - k * d.charE * std::abs(d.tEvapK - 263.15));
        if (b == 0) b = 1;
        correction = 0.97 * a1 * b * c;
    }
    const double g = dp > d.dpLiquid / 1000 && dp > 0 ? std::pow((dp - d.dpLiquid / 1000) / dp, 0.25) : 100;
    r.capacity = RatedValveCapacity(d, a, correction, g) * share;
    r.passes = m < r.capacity;
}

void RateRegulator(const PlantDuty& d, const SelectRequest& q, const Article& a, RatedRow& r) {
    double correction = 1, g = 1;
    if (q.kind == 10) {
        const double lift = d.pCond - d.pEvap;
        g = lift > 0 ? std::pow(lift / 8, 0.25) : 0;
    } else if (d.pEvap > 0 && d.pCond > 0) {
        double e = q.kind == 9 ? 0.15 : (d.tEvapK < 263 ? 1.05 : 1.01);
        correction = std::pow(d.designPressureRatio / (d.pCond / d.pEvap), e);
    }
    r.capacity = RatedValveCapacity(d, a, correction, g);
    r.passes = Finite(q.first) < r.capacity;
}

}  // namespace

RatedRow RateRow(const PlantDuty& d, const SelectRequest& q, const Article& a, int row, double lambda) {
    RatedRow r;
    r.row = row;
    r.type = a.Field(field::Type);
    switch (q.kind) {
    case 12:
        RateCompressor(d, q, a, lambda, r);
        break;
    case 13: case 14: case 23: case 33: {
        RateHeatExchanger(d, q, a, r);
        r.passes = HeatExchangerDuty(q.first) < r.capacity;
        break;
    }
    case 17: {
        const double V = a.Number(field::Size), rho = Finite(q.second), m = Finite(q.first);
        r.capacity = V * (rho / 1000) * 0.9;
        if (rho > 0) r.neededVolume = Cut(m * 1000 / (0.9 * rho), 1);
        r.passes = !(m > r.capacity + 1e-12);
        break;
    }
    case 2: case 11:
        RateExpansionValve(d, q, a, r);
        break;
    case 8: case 9: case 10:
        RateRegulator(d, q, a, r);
        break;
    default:
        RateValve(d, q, a, r);
        break;
    }
    return r;
}

std::vector<SeriesChoice> ReadSeriesChoices(const Workspace& ws, bool brine) {
    std::vector<SeriesChoice> list;
    RecordReader in = OpenIn(ws, brine ? "Sole.LST" : "AddrNeu.LST");
    SeriesChoice c;
    std::string pos;
    while (in.Read(c.caption)) {
        c.file.clear();
        pos.clear();
        in.Read(c.file);
        in.Read(pos);
        c.caption = ListText(c.caption);
        c.file = ListText(Trim(c.file));
        c.position = OldPositionToNew(static_cast<int>(ToNumber(Trim(pos))));
        list.push_back(c);
    }
    return list;
}

bool WriteSeriesChoices(const Workspace& ws, bool brine, const std::vector<SeriesChoice>& list) {
    RecordWriter w;
    for (const SeriesChoice& c : list) w.Item(c.caption).Item(c.file).Item(c.position).EndLine();
    return WriteFileAtomic(ResolveName(ws, brine ? "Sole.LST" : "AddrNeu.LST"), w.Text());
}

std::vector<ParkEntry> ReadPark(const Workspace& ws, std::string_view file) {
    std::vector<ParkEntry> park;
    RecordReader in = OpenIn(ws, file);
    for (;;) {
        ParkEntry e;
        if (!in.Read(e.row[0])) break;
        for (std::size_t i = 1; i < e.row.size(); ++i) in.Read(e.row[i]);
        for (std::string& s : e.change) in.Read(s);
        park.push_back(std::move(e));
    }
    return park;
}

namespace {

bool WritePark(const Workspace& ws, std::string_view file, const std::vector<ParkEntry>& park) {
    RecordWriter w;
    for (const ParkEntry& e : park) {
        for (const std::string& s : e.row) w.Item(s);
        w.EndLine();
        for (const std::string& s : e.change) w.Item(s);
        w.EndLine();
    }
    return WriteFileAtomic(ResolveName(ws, file), w.Text());
}

std::string_view ScratchOf(std::string_view file) {
    return file == kMainUnitPark ? kMainUnitScratch : kFittingsScratch;
}

// The old park goes to its scratch copy before an entry is replaced.
bool ReplacePark(const Workspace& ws, std::string_view file, const std::vector<ParkEntry>& park) {
    const std::string old = ReadWholeFile(ResolveName(ws, file));
    if (!WriteFileAtomic(ResolveName(ws, ScratchOf(file)), old)) return false;
    return WritePark(ws, file, park);
}

std::string LineOf(const ParkEntry& e) {
    const std::string& item = e.change[3];
    return std::string(Trim(item.substr(0, item.find("$§$"))));
}

}  // namespace

bool PutParkEntry(const Workspace& ws, std::string_view file, int position, const ParkEntry& entry) {
    if (position < 1 || position > 1000) return false;
    std::vector<ParkEntry> park = ReadPark(ws, file);
    if (static_cast<int>(park.size()) < position) park.resize(static_cast<std::size_t>(position));
    park[static_cast<std::size_t>(position - 1)] = entry;
    return ReplacePark(ws, file, park);
}

bool PutFittingsEntry(const Workspace& ws, const ParkEntry& entry) {
    std::vector<ParkEntry> park = ReadPark(ws, kFittingsPark);
    auto same = std::find_if(park.begin(), park.end(), [&](const ParkEntry& e) {
        return Trim(e.change[2]) == Trim(entry.change[2]) && LineOf(e) == LineOf(entry);
    });
    if (same != park.end()) *same = entry;
    else park.push_back(entry);
    return ReplacePark(ws, kFittingsPark, park);
}

void ClearParks(const Workspace& ws) {
    WriteFileAtomic(ResolveName(ws, kMainUnitPark), "");
    WriteFileAtomic(ResolveName(ws, kFittingsPark), "");
}

std::string ConnectionMillimetres(const Workspace& ws, const PipeTable& inch, std::string_view text) {
    const std::string_view t = Trim(text);
    auto bare = [](std::string_view name) {
        std::string out;
        for (char ch : name.substr(0, name.find_first_of("'\"")))
            if (ch != ' ') out += ch;
        return out;
    };
    if (t.find_first_of("/'") != std::string_view::npos) {
        const std::string key = bare(t);
        for (int row = 1; row <= inch.PipeRowCount; ++row)
            if (!key.empty() && bare(inch.Name(row)) == key) return NumberText(inch.Da(row));
        return std::string(t);
    }
    for (int row = 1; row <= ws.pipes.PipeRowCount; ++row)
        if (EqualsNoCase(Trim(ws.pipes.Name(row)), t)) return NumberText(ws.pipes.Da(row));
    return std::string(t);
}

ParkEntry ParkEntryOf(const SelectionResult& r, const SelectRequest& q) {
    ParkEntry e;
    e.row = r.listRow;
    e.change[0] = NumberText(q.first);
    e.change[1] = NumberText(q.second);
    e.change[2] = std::to_string(q.kind);
    e.change[3] = q.lineName + "$§$" + r.article.Field(field::PMax);
    e.change[4] = q.lineSize;
    e.change[5] = std::to_string(q.flagA);
    e.change[6] = std::to_string(q.flagB);
    e.change[7] = q.secondLine;
    e.change[8] = q.secondSize;
    e.change[9] = r.catalogueFile;
    e.change[10] = std::to_string(r.taken);
    e.change[18] = std::to_string(r.position);
    e.change[19] = NumberText(q.tenth);
    e.change[23] = NumberText(Cut(q.first, 2));
    return e;
}

namespace {

void TakeEmpty(SelectionResult& r, const SelectRequest& q) {
    r.taken = 0;
    r.article = Article{};
    r.article.SetField(field::Type, std::string(kEmptyArticle));
    r.article.SetField(field::Description, std::string(kEmptyArticleText));
    r.sizeText = DefaultConnection(q.kind);
}

void FillListRow(SelectionResult& r, const SelectRequest& q) {
    r.listRow = {};
    r.listRow[0] = std::to_string(q.kind);
    r.listRow[1] = r.article.Field(field::Type);
    r.listRow[2] = r.article.Field(field::Description);
    r.listRow[3] = r.article.Field(field::OrderNumber);
    r.listRow[4] = r.sizeText;
    r.listRow[5] = q.lineName;
    r.listRow[6] = q.lineSize;
    r.listRow[7] = "1";
    r.listRow[8] = r.article.Field(field::Price);
}

bool ParkApplies(const std::string& plantType) {
    static const char* const kTypes[] = {"KOMP", "2STAGE", "HEATP", "HEATPUMP-2ST", "VERB", "PUMP", "SOLE"};
    return std::any_of(std::begin(kTypes), std::end(kTypes), [&](const char* t) { return plantType == t; });
}

// The files of the call: from the run's store when there is one.
const std::vector<SeriesChoice>& Choices(const Workspace& ws, SelectionState& st, bool brine,
                                         std::vector<SeriesChoice>& own) {
    if (!st.files) return own = ReadSeriesChoices(ws, brine);
    SelectionFiles& f = *st.files;
    if (!f.choicesRead) f.choices = ReadSeriesChoices(ws, brine);
    f.choicesRead = true;
    return f.choices;
}

const std::vector<ParkEntry>& Park(const Workspace& ws, SelectionState& st, bool main, std::vector<ParkEntry>& own) {
    const std::string_view file = main ? kMainUnitPark : kFittingsPark;
    if (!st.files) return own = ReadPark(ws, file);
    SelectionFiles& f = *st.files;
    bool& read = main ? f.mainParkRead : f.fittingsParkRead;
    std::vector<ParkEntry>& park = main ? f.mainPark : f.fittingsPark;
    if (!read) park = ReadPark(ws, file);
    read = true;
    return park;
}

SeriesRows& Series(const Workspace& ws, SelectionState& st, const std::string& base, int position,
                   std::optional<SeriesRows>& own) {
    if (!st.files) return own.emplace(ws, base, position);
    auto it = st.files->series.find({base, position});
    if (it == st.files->series.end()) it = st.files->series.emplace(std::pair{base, position}, SeriesRows(ws, base, position)).first;
    return it->second;
}

bool FromPark(SelectionResult& r, const ParkEntry& e) {
    if (Trim(e.row[0]).empty()) return false;
    r.fromPark = true;
    r.listRow = e.row;
    r.parkedChange = e.change;
    r.catalogueFile = e.change[9];
    r.taken = static_cast<long long>(ToNumber(Trim(e.change[10])));
    r.article.SetField(field::Type, e.row[1]);
    r.article.SetField(field::OrderNumber, e.row[3]);
    r.sizeText = e.row[4];
    return true;
}

}  // namespace

SelectionResult SelectComponent(Workspace& ws, SelectionState& st, const SelectRequest& qIn) {
    SelectionResult r;
    SelectRequest q = qIn;
    st.lastDrop = 0;
    TakeEmpty(r, q);
    if (SizeIsEmpty(q.lineSize)) {
        r.skipped = true;
        return r;
    }
    if (st.mode == SelectStored) q.first = st.storedFigure;
    if (q.flagA == 0 || st.mode == SelectNothing) {
        r.skipped = true;
        return r;
    }
    PlantDuty own;
    if (st.files && !st.files->dutyRead) {
        st.files->duty = DutyOf(ws);
        st.files->dutyRead = true;
    }
    const PlantDuty& d = st.files ? st.files->duty : (own = DutyOf(ws));
    r.duty = (q.kind == 13 || q.kind == 14 || q.kind == 23 || q.kind == 33) ? HeatExchangerDuty(q.first) : q.first;
    if (st.mode == SelectStored && r.duty == HeatExchangerDuty(q.first)) r.duty += st.storedExtra;

    // Units picked beforehand.
    const bool reselect = st.mode == SelectReselect || st.mode == SelectReselectRow || st.mode == SelectStored;
    if (!reselect && ParkApplies(d.plantType)) {
        if (IsMainUnitKind(q.kind)) {
            std::vector<ParkEntry> own;
            const std::vector<ParkEntry>& park = Park(ws, st, true, own);
            const std::size_t pos = static_cast<std::size_t>(ParkPosition(q.kind));
            if (park.size() >= pos && FromPark(r, park[pos - 1])) return r;
        } else {
            std::vector<ParkEntry> own;
            for (const ParkEntry& e : Park(ws, st, false, own))
                if (static_cast<int>(ToNumber(Trim(e.change[2]))) == q.kind && LineOf(e) == Trim(q.lineName) &&
                    FromPark(r, e))
                    return r;
        }
    }

    // The series.
    if (!q.catalogueFile.empty() && (q.position > 0 || reselect)) {
        r.catalogueFile = q.catalogueFile;
        r.position = q.position > 0 ? q.position : SeriesPosition(KindGroupCode(q.kind));
        if (reselect && q.record > 0 && q.position <= 0)
            r.position = static_cast<int>(q.record - (q.record - 2) % kGroupRecords);
    } else {
        std::vector<SeriesChoice> own;
        const std::vector<SeriesChoice>& list = Choices(ws, st, d.brine, own);
        const int slot = KindSlot(q.kind);
        if (slot < 1 || static_cast<int>(list.size()) < slot) {
            r.message = "no series chosen for this kind";
            FillListRow(r, q);
            return r;
        }
        r.catalogueFile = list[static_cast<std::size_t>(slot - 1)].file;
        r.position = list[static_cast<std::size_t>(slot - 1)].position;
    }
    const std::string base = r.catalogueFile.substr(0, std::min<std::size_t>(7, r.catalogueFile.size()));
    std::optional<SeriesRows> ownSeries;
    SeriesRows& series = Series(ws, st, base, r.position, ownSeries);
    if (!series.Row(0)) {
        r.message = "catalogue " + r.catalogueFile + " has no articles at position " + std::to_string(r.position);
        FillListRow(r, q);
        return r;
    }

    // Rows, read as far as the selection goes.
    double lambda = 0.75;
    SelectRequest rated = q;
    if (q.kind == 12) {
        rated.first = MassFlow(ws, d.massFlow, q.first);
        if (!(rated.first > 0) || !std::isfinite(rated.first)) rated.first = d.massFlow;
    }
    const SeriesArticle* taken = nullptr;
    std::size_t takenRow = 0;
    for (std::size_t i = 0; const SeriesArticle* s = series.Row(i); ++i) {
        const Article& a = s->article;
        if (q.kind == 12) {
            lambda = VolumetricEfficiency(ws, d.pCond, d.dpDischarge, d.pEvap, d.dpSuction, a.Number(field::Size));
            if (!(lambda > 0) || !std::isfinite(lambda)) lambda = 0.75;
        }
        RatedRow row = RateRow(d, rated, a, static_cast<int>(i) + 1, lambda);
        row.record = s->record;
        const bool fixed = reselect && q.record > 0 && s->record == q.record;
        r.rows.push_back(row);
        if (!taken && ((reselect && q.record > 0) ? fixed : row.passes)) {
            taken = s;
            takenRow = i;
            if (!q.wholeSeries) break;
        }
    }
    if (taken) taken = series.Row(takenRow);  // the rows read behind it may have moved it
    if (!taken) {
        r.message = "no article of the series meets the duty";
        FillListRow(r, q);
        return r;
    }

    const RatedRow& row = r.rows[takenRow];
    r.taken = taken->record;
    r.article = taken->article;
    st.lastDrop = row.drop;
    r.sizeText = r.article.Field(field::PMax).empty() || ToNumber(r.article.Field(field::PMax)) == 0
                     ? r.article.Field(field::Connection)
                     : r.article.Field(field::PMax);
    if (r.sizeText.empty()) r.sizeText = DefaultConnection(q.kind);
    {
        PipeTable own;
        const PipeTable* inch = &own;
        if (st.files) {
            if (!st.files->inchRead) LoadPipeTable(ws, "RohrIN.DAT", st.files->inch, false);
            st.files->inchRead = true;
            inch = &st.files->inch;
        } else if (r.sizeText.find_first_of("/'") != std::string::npos) {
            LoadPipeTable(ws, "RohrIN.DAT", own, false);
        }
        r.sizeText = ConnectionMillimetres(ws, *inch, r.sizeText);
    }
    if (st.mode != SelectNoAccessories) {
        for (int b = 0; b < field::AccessoryBlocks; ++b) {
            const int f = field::FirstAccessory + 4 * b;
            if (Trim(r.article.Field(f + 1)).empty()) continue;
            r.accessories.push_back({r.article.Field(f), r.article.Field(f + 1), r.article.Field(f + 2),
                                     r.article.Field(f + 3)});
        }
    }
    if (q.kind == 12 && q.flagB != 0 && row.requiredSweptVolume == 0) st.lastDrop = d.dpSuction;
    if (q.kind == 13 || q.kind == 14 || q.kind == 23 || q.kind == 33)
        r.message = std::string(q.kind == 14 ? "Qc =" : "Qo =") + NumberText(r.duty) + " kW, dtm =" +
                    NumberText(q.kind == 14 ? DifferenceOr(d.dtKond, 15) : DifferenceOr(d.dtVerd, 8));
    FillListRow(r, q);
    if (st.mode == SelectRateOnly) return r;

    const double V = r.article.Number(field::Size), rho = Finite(q.second);
    if (q.kind == 0 || q.kind == 10 || q.kind == 20) {
        st.chargeFirst += V * rho / 3000;
        st.chargeSecond += V * rho / 3000;
    } else if (q.kind == 1) {
        st.chargeFirst += V * rho / 3000;
        st.chargeSecond += V * rho / 2000;
    }
    if ((q.kind == 2 || q.kind == 11) && row.capacity > 0) {
        const double load = q.first / row.capacity;
        const double p = d.pCond - (d.pCond - d.pEvap) * (1 - load * load);
        st.valveCondensingC = std::trunc(Finite(TemperatureOfPressure(ws, p)));
        st.valveCondensingSet = true;
    }
    if (st.mode == SelectToFittingsPark) {
        PutFittingsEntry(ws, ParkEntryOf(r, q));
        if (st.files) st.files->fittingsParkRead = false;
    }
    return r;
}

}  // namespace kv
