#include "energy/annual_profile.h"

#include <cmath>

#include "shell/captions.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

AnnualProfile ReadAnnualProfile(const Workspace& ws) {
    AnnualProfile p;
    RecordReader in = OpenIn(ws, kProfileFile);
    p.present = in.Length() > 0;
    if (!p.present) return p;

    // Line 1: ten items, the design temperature and load at 3 and 4.
    std::string item;
    in.Read(item);
    in.Read(item);
    in.Read(p.tNorm);
    in.Read(p.QNorm);
    in.Skip(kProfileItems - 4);

    // Month lines. The values of a month start from those of the month
    // before: an item that is missing or cut off leaves them standing.
    MonthProfile m;
    for (MonthProfile& month : p.months) {
        in.Read(m.name);
        in.Read(m.tHigh);
        in.Read(m.tLow);
        in.Read(m.tRoomDay);
        in.Read(m.tRoomNight);
        in.Skip(kProfileItems - 5);
        month = m;
    }
    return p;
}

bool WriteAnnualProfile(const Workspace& ws, const AnnualProfile& profile, const std::string& location) {
    OutFile out = OpenOut(ws, kProfileFile);
    RecordWriter& w = out.Write();
    w.Item(location).Item("").Item(profile.tNorm).Item(profile.QNorm);
    for (int i = 4; i < kProfileItems; ++i) w.Item(0);
    w.EndLine();
    for (const MonthProfile& m : profile.months) {
        w.Item(m.name).Item(m.tHigh).Item(m.tLow).Item(m.tRoomDay).Item(m.tRoomNight);
        for (int i = 5; i < kProfileItems; ++i) w.Item(0);
        w.EndLine();
    }
    return out.Close();
}

double DayShape(int hour) {
    if (hour < 1 || hour > 24) return 0.0;
    return kDayShape[static_cast<std::size_t>(hour - 1)];
}

double HourTemperature(const MonthProfile& m, int hour) {
    const double t = m.tHigh - (m.tHigh - m.tLow) * DayShape(hour);
    return std::floor(100 * t + 0.005) / 100;
}

bool IsNightHour(int hour) { return hour < 6 || hour >= 23; }

double RoomTemperature(const MonthProfile& m, int hour) { return IsNightHour(hour) ? m.tRoomNight : m.tRoomDay; }

double HeatDemand(double QNorm, double tNorm, double room, double t) {
    const double span = room - 4 - tNorm;
    // A design point on the heating limit gives no load line; a damaged
    // profile must not turn it into an infinite demand.
    if (span == 0.0) return 0.0;
    const double q = QNorm * (room - 4 - t) / span;
    return std::isfinite(q) ? q : 0.0;
}

double AuskuehlF(int month) {
    // The ground loop cools down over the heating season and recovers over
    // the summer: K below the design brine temperature, January first.
    static constexpr std::array<double, 12> kCooling = {3.9, 3.6, 2.7, 1.5, 0.5, 0, 0, 0, 0.5, 1.2, 2.4, 3.3};
    if (month < 1 || month > 12) return 0.0;
    return kCooling[static_cast<std::size_t>(month - 1)];
}

int MonthOfName(const std::string& monthName, const Captions& captions) {
    const std::string_view name = Trim(monthName);
    if (name.empty()) return 0;
    for (int i = 0; i < 12; ++i) {
        const auto word = static_cast<EsimWord>(static_cast<int>(EsimWord::January) + i);
        if (EqualsNoCase(Trim(captions[word]), name)) return i + 1;
    }
    return 0;
}

double AuskuehlF(const std::string& monthName, const Captions& captions) {
    return AuskuehlF(MonthOfName(monthName, captions));
}

SourceKind SourceOf(const std::string& pairText) {
    const std::string_view t = TrimLeft(pairText);
    if (t.empty()) return SourceKind::Steady;
    const char c = t.front();
    if (c == 'A' || c == 'a') return SourceKind::Air;
    if (c == 'B' || c == 'b') return SourceKind::Brine;
    return SourceKind::Steady;
}

double EvaporatingTemperature(SourceKind kind, const SourceInputs& in, double t, double groundCooling) {
    switch (kind) {
    case SourceKind::Air: {
        const double x = t - in.dtVerd;
        const double k = x > in.t0Start ? 0.12 : 0.15;
        return x + k * (x - in.t0Start);
    }
    case SourceKind::Brine:
        return in.toDesign - groundCooling;
    case SourceKind::Steady:
        break;
    }
    return in.toCurrent;
}

double RoundHundredths(double value) { return std::floor(100 * (value + 0.005)) / 100; }

}  // namespace kv
