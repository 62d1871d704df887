#include "lists/list_generation.h"

#include <cmath>

#include "catalogue/selection_plan.h"
#include "lists/calc_lists.h"
#include "lists/list_rows.h"
#include "project/field_checks.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

namespace {

constexpr std::string_view kAccessoryWord = "Zubehör ";

std::string Separator() { return std::string(155, '-'); }

// The files of one generation, built in memory and written at the end.
struct ListTexts {
    RecordWriter parts, partsChange, units, unitsChange, results;
};

void Row(RecordWriter& w, const std::array<std::string, 9>& row) {
    for (const std::string& item : row) w.Item(item);
    w.EndLine();
}

void ChangeBlock(RecordWriter& w, const std::array<std::string, 25>& change) {
    for (const std::string& item : change) w.Item(item);
    w.EndLine();
}

void Line(RecordWriter& w, const std::string& text) { w.Item(text).EndLine(); }

// Loss of a component in K from its drop in mbar: on the low side by the
// slope of the evaporating pressure, elsewhere by that of the condensing one.
double DropInKelvin(const CycleState& c, int section, double mbar) {
    const double slope = (section == Suction || section == Injection || section == EconomizerSuction)
                             ? c.dpdtEvap
                             : c.dpdtEvap * c.dpdtRatio;
    return slope > 0 ? mbar / 1000 / slope : 0.0;
}

std::string PlaceOf(const Workspace& ws, const SelectRequest& q) {
    if (q.section > 0) {
        std::string caption = LineSectionCaption(ws, q.section);
        if (q.lineName == "Part load") caption = ws.captions[Cap::LinePartLoad];
        return caption;
    }
    return KindListCaption(ws, q.kind);
}

// Report entry of a main unit: the group head when the place changes, then
// kind, quantity, designation and connection, and for a compressor its
// operating frequency.
void UnitEntry(Workspace& ws, RecordWriter& w, const SelectRequest& q, const std::array<std::string, 9>& row,
               std::string& lastGroup) {
    const Captions& c = ws.captions;
    if (row[5] != lastGroup) {
        lastGroup = row[5];
        Line(w, "");
        Line(w, "        " + Separator().substr(8));
        std::string place = row[5];
        std::string size = row[6];
        if (!q.secondLine.empty()) {
            place = LineSectionCaption(ws, Liquid) + " - " + place;
            size = q.secondSize + "x" + size;
        }
        Line(w, "        " + c[Cap::Position] + "             :  §$&" + place);
        Line(w, "        " + c[Cap::PipeSize] + "   /[mm]:§$&" + size);
        Line(w, Separator());
    }
    Line(w, "        " + c[Cap::ColComponent] + "        :  §$&" + row[0]);
    Line(w, "        " + c[Cap::ColQuantity] + " :  §$&" + row[7]);
    Line(w, "        " + c[Cap::TypeDesignation] + "     : §$&" + row[1] + ", " + row[2]);
    Line(w, "        " + c[Cap::Connection] + " " + c[Cap::ReportSizeWord] + "  /[mm] :  §$&" + row[4]);
    if (q.kind == 12) {
        if (ToNumber(ws.project.Frequency) <= 0) ws.project.Frequency = "50";
        Line(w, "        " + c[Cap::FrequencyWord] + " " + c[Cap::KindCompressor] + "  :§$&" + ws.project.Frequency +
                    " Hz");
    }
}

// Report entry of a fitting: the summary form with its share of the line's loss.
void FittingEntry(const Workspace& ws, RecordWriter& w, const SelectRequest& q, const SelectionResult& r,
                  const std::array<std::string, 9>& row, double drop) {
    const Captions& c = ws.captions;
    Line(w, Separator());
    Line(w, "&$$" + row[0] + ": " + row[1] + "   (" + row[5] + ")");
    if (r.rows.size() > 0 && !r.rows.empty()) {
        const RatedRow* taken = nullptr;
        for (const RatedRow& row : r.rows)
            if (row.record == r.taken) taken = &row;
        if (taken && taken->capacity > 0)
            Line(w, "        " + c[Cap::CapacityAtDuty] + " :  §$&" + NumberText(Cut(taken->capacity, 2)));
    }
    Line(w, "        " + c[Cap::Connection] + " /[mm] :  §$&" + r.sizeText);
    Line(w, "        " + c[Cap::PressureDrop] + " /[mbar] :  §$&" + NumberText(Cut(drop, 1)));
    const double k = DropInKelvin(ws.cycle, q.section, drop);
    if (k != 0) Line(w, "        " + c[Cap::PressureDrop] + " /[K] :  §$&" + NumberText(Cut(k, 2)));
    const double line = q.section > 0 ? ws.cycle.lineLoss[static_cast<std::size_t>(q.section)] : 0.0;
    if (line > 0 && drop > 0)
        Line(w, "        " + c[Cap::ShareOfLoss] + " /[%] :  §$&" + NumberText(Cut(100 * drop / (line + drop), 1)));
}

int Count(double v) { return v >= 1 ? std::min(WholeNumber(v), 100000) : 1; }

}  // namespace

std::string KindListCaption(const Workspace& ws, int kind) {
    const Captions& c = ws.captions;
    const bool brine = UpperAscii(ws.project.AnlagenTyp) == "SOLE";
    if (brine) {
        if (kind == 0) return c[Cap::BrineKindPump];
        if (kind == 1) return c[Cap::BrineKindShutOff];
        if (kind == 5) return c[Cap::BrineKindControlValve];
        if (kind == 7) return c[Cap::BrineKindCheckValve];
    }
    static constexpr Cap kByKind[] = {
        Cap::KindEvapPressureRegulator, Cap::KindShutOffValve,    Cap::KindExpansionValve,   Cap::KindFilterDrier,
        Cap::KindSightGlass,            Cap::KindSolenoidValve,   Cap::KindBallValve,        Cap::KindCheckValve,
        Cap::KindSuctionLiquidHx,       Cap::KindOilSeparator,    Cap::KindHotGasBypassValve, Cap::KindEcoExpansionValve,
        Cap::KindCompressor,            Cap::KindEvaporator,      Cap::KindCondenser,        Cap::KindSuctionFilter,
        Cap::KindVibrationAbsorber,     Cap::KindReceiver,        Cap::KindCondPressureRegulator};
    if (kind >= 0 && kind <= 18) return c[kByKind[kind]];
    if (kind == 23) return c[Cap::KindIntermediateHx];
    if (kind == 33) return c[Cap::KindEconomizerHx];
    return std::to_string(kind);
}

bool IsListedMainUnit(int kind) { return kind == 12 || kind == 13 || kind == 14 || kind == 17 || kind == 23; }

std::array<std::string, 2> SplitReference(std::string_view orderNumber) {
    std::string_view rest = orderNumber;
    if (!rest.empty() && rest.front() == '#') rest.remove_prefix(1);
    std::size_t mark = rest.find('/');
    if (mark == std::string_view::npos) mark = rest.find('\\');
    if (mark == std::string_view::npos) return {std::string(rest), std::string()};
    return {std::string(rest.substr(0, mark)), std::string(rest.substr(mark + 1, 4))};
}

ListGeneration GenerateLists(Workspace& ws) {
    ListGeneration g;
    const Captions& c = ws.captions;
    const CycleState& cyc = ws.cycle;
    DeleteFile(ws, lists::kPed);

    ListTexts t;
    // Headers: the fittings list carries six values of the project.
    const std::array<std::string, 4> head = ListHeader(ws);
    t.parts.Item(head[0]).Item(head[1]).Item(c[Cap::Refrigerant]).Item(head[3])
        .Item(NumberText(ws.project.PartLoadPercent)).Item("").Item("").Item("5")
        .Item(NumberText(ws.project.TverK)).Item("0").Item("0").Item("0")
        .Item(NumberText(ws.project.tkoK)).Item(ws.project.KaelteM).EndLine();
    for (RecordWriter* w : {&t.units, &t.results}) {
        for (const std::string& item : head) w->Item(item);
        w->EndLine();
    }
    std::string fittingsHead;
    if (FileLength(ws, lists::kFittings) == 0) {
        RecordWriter w;
        for (const std::string& item : head) w.Item(item);
        w.EndLine();
        fittingsHead = w.Take();
    }

    // The line sizes the calculation left take the place of the cycle
    // state's, as the drawing and the lists must agree.
    const LineSizeFile sizes = ReadLineSizeFile(ws);
    g.requests = PlantSelectionPlan(ws);
    for (SelectRequest& q : g.requests)
        if (q.section > 0 && !sizes.size[static_cast<std::size_t>(q.section)].empty() && q.lineSize != "1")
            q.lineSize = sizes.size[static_cast<std::size_t>(q.section)];

    SelectionState st;
    st.files = std::make_shared<SelectionFiles>();
    const int evaporators = Count(ws.project.ArmaturZahl[9][1]);
    const int compressors = Count(ws.project.ArmaturZahl[14][2]);
    std::string lastGroup;
    const std::size_t steps = g.requests.size();
    for (std::size_t i = 0; i < steps; ++i) {
        const SelectRequest& q = g.requests[i];
        SelectionResult r = SelectComponent(ws, st, q);
        if (r.skipped) {
            g.results.push_back(std::move(r));
            continue;
        }
        const double drop = st.lastDrop;
        // Steps a to f: the drops of the fittings add up per line.
        if (q.section >= 1 && q.section <= 5 && !IsMainUnitKind(q.kind) && std::isfinite(drop))
            g.lineDrops[static_cast<std::size_t>(q.section)] += drop;

        std::array<std::string, 9> row = r.listRow;
        row[0] = KindListCaption(ws, q.kind);
        row[5] = PlaceOf(ws, q);
        if (q.kind == 13) row[7] = std::to_string(evaporators);
        if (q.kind == 12) row[7] = std::to_string(compressors);
        if (!IsMainUnitKind(q.kind)) row[7] = std::to_string(std::max(1, q.quantity));
        if (row[7].empty()) row[7] = "1";

        std::array<std::string, 25> change;
        if (r.fromPark) {
            change = r.parkedChange;
            change[7] = q.secondLine;
            change[8] = q.secondSize;
        } else {
            change = ParkEntryOf(r, q).change;
        }
        const bool unit = IsListedMainUnit(q.kind);
        if (unit) {
            change[11] = NumberText(Cut(BaseCharge(ws) + st.chargeFirst, 2));
            change[12] = NumberText(Cut(BaseCharge(ws) + st.chargeSecond, 2));
            change[13] = NumberText(ws.project.dtVerdK);
            change[14] = NumberText(ws.project.dtKondK);
            change[16] = NumberText(Cut(cyc.pShaft, 2));
            change[17] = r.message;
        }
        change[15] = NumberText(cyc.massFlow);
        change[21] = NumberText(Cut(cyc.hVapEvap, 2));
        change[22] = NumberText(ws.project.TverK);
        change[23] = NumberText(std::trunc(100 * (unit ? r.duty : q.first)) / 100);
        change[24] = NumberText(Cut(drop, 2));

        RecordWriter& list = unit ? t.units : t.parts;
        Row(list, row);
        if (unit) {
            UnitEntry(ws, t.results, q, row, lastGroup);
            ++g.unitRows;
        } else {
            FittingEntry(ws, t.results, q, r, row, drop);
            ++g.fittingRows;
        }
        ChangeBlock(unit ? t.unitsChange : t.partsChange, change);
        if (Trim(row[1]) == Trim(kEmptyArticle)) ++g.emptyRows;

        // Accessories follow their parent: the row's quantity times the
        // accessory's own, a quantity of 0 counting as 1. They have no change
        // block.
        const int quantity = Count(ToNumber(row[7]));
        const std::string parent = row[0] + std::string(kAccessoryWord);
        auto accessory = [&](const std::string& count, const std::string& type, const std::string& maker) {
            std::array<std::string, 9> a{};
            a[1] = type;
            a[2] = maker;
            a[3] = parent;
            a[7] = count;
            Row(list, a);
            ++g.accessoryRows;
        };
        for (const auto& acc : r.accessories) {
            const double own = ToNumber(acc[0]);
            // The designation carries the accessory's order number behind a
            // comma: the order column holds the parent's word.
            accessory(std::to_string(quantity * (own > 0 ? std::min(WholeNumber(own), 100000) : 1)),
                      Trim(acc[2]).empty() ? acc[1] : acc[2] + ", " + acc[1], acc[3]);
        }
        if (!row[3].empty() && row[3].front() == '#') {
            const auto [front, back] = SplitReference(row[3]);
            accessory(std::to_string(quantity), front, "");
            if (ToNumber(front + back) != 0) accessory(std::to_string(quantity), back, "");
        }
        g.results.push_back(std::move(r));
    }

    g.charge = Cut(BaseCharge(ws) + st.chargeFirst, 2);
    g.secondCharge = Cut(BaseCharge(ws) + st.chargeSecond, 2);
    RecordWriter charge;
    charge.Item(NumberText(g.charge)).Item(NumberText(g.secondCharge)).EndLine();

    bool ok = WriteListText(ws, lists::kParts, t.parts.Text());
    ok = WriteListText(ws, lists::kPartsChange, t.partsChange.Text()) && ok;
    ok = WriteListText(ws, lists::kUnits, t.units.Text()) && ok;
    ok = WriteListText(ws, lists::kUnitsChange, t.unitsChange.Text()) && ok;
    ok = WriteListText(ws, lists::kComponentResults, t.results.Text()) && ok;
    if (!fittingsHead.empty()) ok = WriteListText(ws, lists::kFittings, fittingsHead, true) && ok;
    ok = WriteListText(ws, lists::kCharge, charge.Text()) && ok;
    g.ok = ok;
    if (!ok) g.message = "list files could not be written";
    return g;
}

}  // namespace kv
