#include "catalogue/selection_table.h"

#include <algorithm>
#include <cmath>

#include "catalogue/catalogue.h"
#include "refrigerant/state_points.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/workspace.h"

namespace kv {

int BandColour(CapacityBand band) {
    switch (band) {
    case CapacityBand::Near: return 10;
    case CapacityBand::Usable: return 14;
    default: return 12;
    }
}

const char* BandName(CapacityBand band) {
    switch (band) {
    case CapacityBand::Near: return "near";
    case CapacityBand::Usable: return "usable";
    default: return "other";
    }
}

CapacityBand BandOf(double rated, double duty, bool wide) {
    if (!std::isfinite(rated) || !(duty > 0)) return CapacityBand::Other;
    if (wide) {
        if (rated > duty && rated < 1.5 * duty) return CapacityBand::Near;
        if (rated > duty && rated < 5 * duty) return CapacityBand::Usable;
        return CapacityBand::Other;
    }
    if (rated > 0.95 * duty && rated < 1.1 * duty) return CapacityBand::Near;
    if (rated > 0.85 * duty && rated < 1.3 * duty) return CapacityBand::Usable;
    return CapacityBand::Other;
}

double EnergyFigure(int groupCode, const Article& a) {
    double power = a.Number(field::Rated2);
    if (!(power > 0)) power = 0.001;
    const double q = a.Number(field::Rated1);
    double r = 0;
    if (groupCode == 600) {
        const double fin = std::max(0.0, a.Number(11));
        r = 10 * (q / 1.23) / power * std::sqrt(fin / 4.5);
    } else if (groupCode == 650) {
        r = 10 * q / power;
    }
    return std::isfinite(r) ? std::trunc(r + 1e-9) / 10 : 0.0;
}

std::string EnergyClass(int groupCode, const Article& a) {
    static const char* const kClasses[] = {"A++", "A+", "A", "B", "C", "D", "E"};
    static const double kEvaporator[] = {45, 35, 27, 21, 16, 12};
    static const double kCondenser[] = {240, 160, 110, 70, 45, 30};
    if (groupCode != 600 && groupCode != 650) return {};
    const double* limits = groupCode == 600 ? kEvaporator : kCondenser;
    const double r = EnergyFigure(groupCode, a);
    for (int i = 0; i < 6; ++i)
        if (r >= limits[i]) return kClasses[i];
    return kClasses[6];
}

InverterRating InverterRech(double catalogueDisplacement, double plantPower, double fieldValue, double qDuty,
                            double fRun, double fNet) {
    InverterRating r;
    if (!(fNet > 0)) fNet = 50;
    r.displacement = Cut(catalogueDisplacement * fRun / 50, 2);
    r.power = Cut(plantPower * fRun / fNet, 2);
    const double atMains = fieldValue * fNet / 50;
    r.capacity = r.displacement != 0 ? Cut(qDuty * atMains / r.displacement, 2) : 0.0;
    if (r.capacity >= qDuty * 1.1 && r.capacity < qDuty * 1.3) r.band = CapacityBand::Usable;
    else if (r.capacity >= qDuty && r.capacity < qDuty * 1.1) r.band = CapacityBand::Near;
    r.label = " (" + NumberText(fRun) + "Hz)";
    return r;
}

std::vector<std::string> KopfZeile(std::string_view unit) {
    return {"Qo min", " [" + std::string(unit) + "]", "Qo max", "/"};
}

std::vector<std::string> HeadVentTab() { return {"[mbar]", "kv", " [%]", "[m]", " mbar]"}; }

int KindOfGroup(int groupCode) {
    switch (groupCode) {
    case 100: return 2;
    case 550: return 12;
    case 600: return 13;
    case 650: return 14;
    case 700: case 750: case 800: case 850: return groupCode / 50 + 1;
    default: return groupCode >= 0 && groupCode <= 500 ? groupCode / 50 : 0;
    }
}

double CompressorCapacity(const Workspace& ws, double sweptVolume) {
    const CycleState& c = ws.cycle;
    const double rho = c.rhoAfterDrop > 0 ? c.rhoAfterDrop : c.rhoSuction;
    double lambda = VolumetricEfficiency(ws, c.pCond, c.dpDischarge, c.pEvap, c.dpSuction, sweptVolume);
    if (!(lambda > 0) || !std::isfinite(lambda)) lambda = 0.75;
    const double effect = c.hVapEvap - c.hLiqCond;
    const double q = sweptVolume / 3600 * lambda * rho * effect;
    return q > 0 && std::isfinite(q) ? Cut(q, 2) : 0.0;
}

double HeatExchangerCapacity(const PlantDuty& plant, int groupCode, const Article& a, int unitFlag) {
    double dtFactor = 1;
    const double rated = groupCode == 600 ? 8 : 15;
    const double design = ToNumber(groupCode == 600 ? plant.dtVerd : plant.dtKond);
    if (design > 0) dtFactor = design / rated;
    double unit = 1;
    const int code = static_cast<int>(a.Number(field::UnitCode));
    if (plant.brine && groupCode == 600) {
        if (code == 2 && (unitFlag == 0 || unitFlag == 1)) unit = 1.666;
        else if ((code == 0 || code == 1) && unitFlag == 2) unit = 0.6;
    }
    const double q = a.Number(field::Rated1) * dtFactor * unit;
    return std::isfinite(q) ? q : 0.0;
}

std::string QoMessage(double qMin, double qMax) {
    return "Qo min = " + NumberText(Cut(qMin, 2)) + " kW, Qo max = " + NumberText(Cut(qMax, 2)) + " kW";
}

SelectionTable BuildSelectionTable(const Workspace& ws, int catalogPosition, std::string_view base,
                                   int seriesPosition, const TableDuty& duty) {
    SelectionTable t;
    t.catalogPosition = catalogPosition;
    t.group = catalogPosition - 2;
    t.base = std::string(base);
    t.seriesPosition = seriesPosition;
    const bool hx = t.group == 600 || t.group == 650;
    t.duty = hx && duty.qCond > 0 ? duty.qCond : duty.qDuty;
    const PlantDuty plant = DutyOf(ws);
    SelectRequest q;
    q.kind = KindOfGroup(t.group);
    q.first = duty.qDuty;
    q.second = ws.cycle.rhoLiqCond;
    const std::vector<SeriesArticle> series = ReadSeriesArticles(ws, base, seriesPosition);
    t.rows.reserve(series.size());
    for (std::size_t i = 0; i < series.size(); ++i) {
        const Article& a = series[i].article;
        SelectionTableRow row;
        row.record = series[i].record;
        row.type = a.Field(field::Type);
        row.orderNumber = a.Field(field::OrderNumber);
        row.connection = a.Field(field::Connection);
        row.description = a.Field(field::Description);
        row.price = a.Number(field::Price);
        if (hx) {
            row.rated = HeatExchangerCapacity(plant, t.group, a, duty.unitFlag);
            row.energyClass = EnergyClass(t.group, a);
        } else if (q.kind == 12) {
            row.sweptVolume = a.Number(field::Size);
            row.rated = CompressorCapacity(ws, row.sweptVolume);
        } else {
            row.rating = RateRow(plant, q, a, static_cast<int>(i) + 1);
            row.rated = row.rating.capacity;
        }
        if (!std::isfinite(row.rated)) row.rated = 0;
        row.band = BandOf(row.rated, t.duty, hx);
        row.colour = BandColour(row.band);
        row.meetsDuty = t.duty > 0 && !(row.rated < t.duty);
        if (row.meetsDuty && t.marked < 0) t.marked = static_cast<int>(i);
        if (t.rows.empty() || row.rated < t.qMin) t.qMin = row.rated;
        t.qMax = std::max(t.qMax, row.rated);
        t.rows.push_back(std::move(row));
    }
    t.messageLine = QoMessage(t.qMin, t.qMax);
    return t;
}

void RateAtFrequency(const Workspace& ws, SelectionTable& t, double fRun, double fNet) {
    if (t.group != 550 || !(fRun > 0) || !(fNet > 0)) return;
    t.frequency = fRun == fNet ? 0.0 : fRun;
    t.marked = -1;
    t.qMin = t.qMax = 0;
    for (std::size_t i = 0; i < t.rows.size(); ++i) {
        SelectionTableRow& row = t.rows[i];
        row.rated = CompressorCapacity(ws, row.sweptVolume * fRun / fNet);
        if (!std::isfinite(row.rated)) row.rated = 0;
        row.band = BandOf(row.rated, t.duty, false);
        row.colour = BandColour(row.band);
        row.meetsDuty = t.duty > 0 && !(row.rated < t.duty);
        if (row.meetsDuty && t.marked < 0) t.marked = static_cast<int>(i);
        if (i == 0 || row.rated < t.qMin) t.qMin = row.rated;
        t.qMax = std::max(t.qMax, row.rated);
    }
    t.messageLine = QoMessage(t.qMin, t.qMax) + (t.frequency > 0 ? " (" + NumberText(fRun) + " Hz)" : std::string());
}

bool BtFileCreate(const Workspace& ws, const SelectionTable& t, const SelectionTableRow& row) {
    const CycleState& c = ws.cycle;
    const std::string br = ws.lineEnd;
    auto pair = [&](std::string label, double value) { return label + "§$&" + NumberText(Cut(value, 2)); };
    const std::string tUnit = "°C]";
    std::vector<std::string> lines = {
        "15&$$" + row.type,
        pair("  to /[" + tUnit + " : ", c.tEvapK - 273.15),
        pair("  po /[bar a/psi a] : ", c.pEvap),
        pair("   dho /[kJ/kg] : ", c.hVapEvap - c.hLiqCond),
        pair("   mp /[kg/s] : ", c.massFlow),
        pair("  xd /[--] : ", c.qualityInlet),
        pair("  tc /[" + tUnit + " : ", c.tCondK - 273.15),
        pair("  pc /[bar a/psi a] : ", c.pCond),
        pair("    pc/po /[--] :", c.pEvap > 0 ? c.pCond / c.pEvap : 0.0),
        pair("  tü /[K] : ", c.superheatEvap),
        pair("  toh /[" + tUnit + " : ", c.tDischargeC),
        pair("  tSL /[" + tUnit + " : ", c.tSuctionC),
        pair("  Qo /[kW] : ", row.rated),
        t.group == 550 ? std::string("VDBild") : std::string("Part_Pic"),
    };
    if (!row.energyClass.empty()) lines.push_back("Eff_class§§§$$$" + row.energyClass);
    RecordWriter w;
    for (const std::string& l : lines) w.Item(br + l).EndLine();
    return WriteFileAtomic(ResolveName(ws, "BT_calc.DAT"), w.Text());
}

bool AdoptTableRow(const Workspace& ws, const SelectionTable& t, int index) {
    if (index < 0 || index >= static_cast<int>(t.rows.size())) return false;
    const SelectionTableRow& row = t.rows[static_cast<std::size_t>(index)];
    const int kind = KindOfGroup(t.group);
    ParkEntry e;
    e.row = {std::to_string(kind), row.type, row.description, row.orderNumber, row.connection, "", "", "1",
             NumberText(row.price)};
    e.change[0] = NumberText(t.duty);
    e.change[2] = std::to_string(kind);
    e.change[9] = RecordFileName(t.base);
    e.change[10] = std::to_string(row.record);
    e.change[18] = std::to_string(t.seriesPosition);
    e.change[23] = NumberText(Cut(row.rated, 2));
    if (IsMainUnitKind(kind) && !PutParkEntry(ws, kMainUnitPark, ParkPosition(kind), e)) return false;
    if (!IsMainUnitKind(kind) && !PutFittingsEntry(ws, e)) return false;
    return BtFileCreate(ws, t, row);
}

}  // namespace kv
