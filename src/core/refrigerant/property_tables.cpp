#include "refrigerant/property_tables.h"

#include <charconv>
#include <cmath>
#include <system_error>

#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/text.h"

namespace kv {
namespace fs = std::filesystem;

namespace {

// The numbers of a table text in order: separated by commas, blanks, tabs,
// semicolons or line ends, with a decimal point. Anything that is not a
// number reads as 0, as the classical input statement reads it.
std::vector<double> Numbers(std::string_view text) {
    std::vector<double> out;
    out.reserve(text.size() / 8);
    std::size_t i = 0;
    const auto isSep = [](char c) { return c == ',' || c == ' ' || c == '\t' || c == ';' || c == '\r' || c == '\n'; };
    while (i < text.size()) {
        while (i < text.size() && isSep(text[i])) ++i;
        if (i >= text.size()) break;
        std::size_t j = i;
        while (j < text.size() && !isSep(text[j])) ++j;
        std::string_view token = text.substr(i, j - i);
        if (token.size() >= 2 && token.front() == '"' && token.back() == '"') token = token.substr(1, token.size() - 2);
        double v = 0.0;
        const char* first = token.data();
        const char* last = token.data() + token.size();
        if (first != last && *first == '+') ++first;
        const auto res = std::from_chars(first, last, v);
        if (res.ec != std::errc() || res.ptr != last || !std::isfinite(v)) v = LeadingValue(token).value;
        out.push_back(v);
        i = j;
    }
    return out;
}

// Densities are never more precise than 0.01 kg/m³ in the model.
double CutDensity(double rho) { return std::floor(rho * 100.0) / 100.0; }

// A table of more rows than any real one, or whose temperatures fall, is
// refused whole: its rows go and the reason stays.
void RefuseDamagedTable(SaturationTable& table, std::string_view fileName) {
    const std::string name(fileName);
    if (table.rows.size() > kMaxSaturationRows) {
        table.refusal = "The saturation table " + name + " has " + std::to_string(table.rows.size()) +
                        " rows, more than the " + std::to_string(kMaxSaturationRows) + " a table can hold.";
    } else {
        for (std::size_t i = 1; i < table.rows.size(); ++i)
            if (table.rows[i].t < table.rows[i - 1].t) {
                table.refusal = "The saturation table " + name + " is out of order: row " + std::to_string(i + 1) +
                                " is colder than the row before it.";
                break;
            }
    }
    if (!table.refusal.empty()) table.rows.clear();
}

// The step of an even temperature grid, 0 when the rows are not on one.
double GridStep(const std::vector<SatRow>& rows) {
    if (rows.size() < 2) return 0.0;
    const double step = rows[1].t - rows[0].t;
    if (!(step > 0)) return 0.0;
    for (std::size_t i = 2; i < rows.size(); ++i)
        if (std::fabs(rows[i].t - rows[i - 1].t - step) > 1e-6 * step) return 0.0;
    return step;
}

}  // namespace

SaturationTable ParseSaturationTable(std::string_view text, std::string_view fileName) {
    SaturationTable table;
    table.present = !Trim(text).empty();
    const std::string name = UpperAscii(fs::path(std::string(fileName)).filename().string());
    const bool celsius = name == "R123.DAT";
    const bool specificVolumes = name == "R11.DAT" || name == "R12.DAT" || name == "R23.DAT";
    const std::vector<double> n = Numbers(text);
    for (std::size_t i = 0; i + 7 <= n.size(); i += 7) {
        SatRow r{n[i], n[i + 1], n[i + 2], n[i + 3], n[i + 4], n[i + 5], n[i + 6]};
        // The terminator row: fields 1 and 3 zero, whatever field 2 holds.
        if (r.t == 0.0 && r.pBubble == 0.0) {
            table.terminated = true;
            break;
        }
        if (celsius) r.t += 273.15;
        if (specificVolumes) {
            r.rhoLiq = r.rhoLiq != 0.0 ? 1000.0 / r.rhoLiq : 0.0;
            r.rhoVap = r.rhoVap != 0.0 ? 1000.0 / r.rhoVap : 0.0;
        }
        r.rhoLiq = CutDensity(r.rhoLiq);
        r.rhoVap = CutDensity(r.rhoVap);
        table.rows.push_back(r);
    }
    RefuseDamagedTable(table, fileName);
    table.gridStep = GridStep(table.rows);
    return table;
}

SupercriticalTable ParseSupercriticalTable(std::string_view text) {
    SupercriticalTable table;
    table.present = !Trim(text).empty();
    const std::vector<double> n = Numbers(text);
    table.sortedByT = true;
    for (std::size_t i = 0; i + 6 <= n.size(); i += 6) {
        const SupercriticalRow r{n[i], n[i + 1], n[i + 2], n[i + 3], n[i + 4], n[i + 5]};
        // The file ends at a row with a 0 in any of its first three fields.
        if (r.t == 0.0 || r.p == 0.0 || r.h == 0.0) break;
        if (!table.rows.empty() && r.t < table.rows.back().t) table.sortedByT = false;
        table.rows.push_back(r);
    }
    return table;
}

template <class Table, class Parse>
const Table& PropertyCache::Get(std::map<std::string, Entry<Table>>& entries, const fs::path& dataDir,
                                const std::string& fileName, Parse parse) {
    return Refresh(entries[(dataDir / fileName).string()], dataDir, fileName, parse);
}

template <class Table, class Parse>
const Table& PropertyCache::Refresh(Entry<Table>& e, const fs::path& dataDir, const std::string& fileName,
                                    Parse parse) {
    if (e.loaded && e.checkedRound == round_ && !rereadEveryLookUp) return e.table;
    if (rereadEveryLookUp) e.loaded = false;
    std::error_code ec;
    // The time of the last write alone: every save of a table moves it.
    auto stampOf = [&ec](const fs::path& p) {
        Stamp s;
        s.time = fs::last_write_time(p, ec);
        if (ec) return Stamp{};
        return s;
    };
    e.checkedRound = round_;
    if (e.loaded) {
        const Stamp now = stampOf(e.path);
        if (!ec && now == e.stamp) return e.table;
    }
    e.path = ResolveName(dataDir, fileName);
    e.stamp = stampOf(e.path);
    e.table = parse(ReadWholeFile(e.path));
    e.loaded = true;
    return e.table;
}

const SaturationTable& PropertyCache::Saturation(const fs::path& dataDir, const std::string& fileName) {
    const auto parse = [&fileName](const std::string& text) { return ParseSaturationTable(text, fileName); };
    if (lastSat_.entry && fileName == lastSatFile_ && dataDir.native() == lastSatDir_)
        return Refresh(*lastSat_.entry, dataDir, fileName, parse);
    // Entries of a map stay where they are while others are added.
    Entry<SaturationTable>& e = saturation_[(dataDir / fileName).string()];
    lastSat_.entry = &e;
    lastSatDir_ = dataDir.native();
    lastSatFile_ = fileName;
    return Refresh(e, dataDir, fileName, parse);
}

const SupercriticalTable& PropertyCache::Supercritical(const fs::path& dataDir, const std::string& fileName) {
    return Get(supercritical_, dataDir, fileName, [](const std::string& text) { return ParseSupercriticalTable(text); });
}

const SuperheatTable& PropertyCache::Superheat(const std::string& dataDir, const std::string& fileName) {
    std::string key = dataDir;
    key += '|';
    key += fileName;
    auto it = superheat_.find(key);
    if (it == superheat_.end())
        it = superheat_.emplace(key, ParseSuperheatTable(ReadWholeFile(ResolveName(fs::path(dataDir), fileName)))).first;
    return it->second;
}

void PropertyCache::Clear() {
    lastSat_.entry = nullptr;
    saturation_.clear();
    supercritical_.clear();
    superheat_.clear();
}

}  // namespace kv
