#include "documents/element_lines.h"

#include <algorithm>
#include <cmath>

#include "lists/list_rows.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/workspace.h"

namespace kv {

namespace {
constexpr std::string_view kMark = "§$";
}  // namespace

bool IsLineElement(int code) { return code == 1 || code == 5 || code == 6 || code == 7 || code == 8 || code == -3; }

std::string ElementNumber(double v) {
    if (!std::isfinite(v)) v = 0;
    const std::string t = NumberText(std::round(v * 100) / 100);
    return v >= 0 ? " " + t : t;
}

std::string FormatElement(const SchemeElement& e) {
    std::string s = ElementNumber(e.code) + std::string(kMark) + ElementNumber(e.x1) + std::string(kMark) +
                    ElementNumber(e.y1) + std::string(kMark) + ElementNumber(e.x2) + std::string(kMark) +
                    ElementNumber(e.y2) + std::string(kMark) + e.text + std::string(kMark);
    std::vector<std::string> rest = e.rest;
    if (rest.size() < 3) {
        rest = {" 0", "", ElementNumber(e.labelPlace).substr(1)};
    }
    for (const std::string& f : rest) s += f + std::string(kMark);
    return s;
}

SchemeElement ParseElement(std::string_view line) {
    std::vector<std::string> fields;
    std::size_t from = 0;
    while (from <= line.size()) {
        const std::size_t at = line.find(kMark, from);
        if (at == std::string_view::npos) {
            if (from < line.size()) fields.emplace_back(line.substr(from));
            break;
        }
        fields.emplace_back(line.substr(from, at - from));
        from = at + kMark.size();
    }
    auto field = [&](std::size_t i) -> std::string { return i < fields.size() ? fields[i] : std::string(); };
    auto number = [&](std::size_t i) {
        const double v = ToNumber(Trim(field(i)));
        return std::isfinite(v) ? v : 0.0;
    };
    SchemeElement e;
    e.code = WholeNumber(number(0));
    e.x1 = number(1);
    e.y1 = number(2);
    e.x2 = number(3);
    e.y2 = number(4);
    e.text = field(5);
    for (std::size_t i = 6; i < fields.size(); ++i) e.rest.push_back(fields[i]);
    e.labelPlace = WholeNumber(number(8));
    return e;
}

SchemeFile ParseSchemeText(const std::string& text) {
    SchemeFile f;
    RecordReader in(text);
    for (std::string& h : f.header)
        if (!in.Read(h)) return f;
    std::string line;
    while (!in.AtEnd() && in.Read(line)) {
        if (std::string(Trim(line)).empty()) continue;
        f.elements.push_back(ParseElement(line));
    }
    return f;
}

std::string SchemeText(const SchemeFile& f) {
    RecordWriter w;
    for (const std::string& h : f.header) w.Item(h).EndLine();
    for (const SchemeElement& e : f.elements) w.Item(FormatElement(e)).EndLine();
    return w.Take();
}

SchemeFile ReadSchemeFile(const Workspace& ws, std::string_view name) {
    return ParseSchemeText(ReadWholeFile(ResolveName(ws, name)));
}

bool WriteSchemeFile(const Workspace& ws, std::string_view name, const SchemeFile& f) {
    return WriteListText(ws, name, SchemeText(f));
}

int HitElement(const SchemeFile& f, double x, double y, double tolerance) {
    for (int i = static_cast<int>(f.elements.size()) - 1; i >= 0; --i) {
        const SchemeElement& e = f.elements[static_cast<std::size_t>(i)];
        if (!IsLineElement(e.code) && x >= e.x1 && x <= e.x1 + e.x2 && y >= e.y1 && y <= e.y1 + e.y2) return i;
    }
    int best = -1;
    double nearest = tolerance;
    for (std::size_t i = 0; i < f.elements.size(); ++i) {
        const SchemeElement& e = f.elements[i];
        if (!IsLineElement(e.code)) continue;
        const double dx = e.x2 - e.x1, dy = e.y2 - e.y1, len2 = dx * dx + dy * dy;
        const double t = len2 > 0 ? std::clamp(((x - e.x1) * dx + (y - e.y1) * dy) / len2, 0.0, 1.0) : 0.0;
        const double d = std::hypot(x - (e.x1 + t * dx), y - (e.y1 + t * dy));
        if (d <= nearest) nearest = d, best = static_cast<int>(i);
    }
    return best;
}

void MoveElement(SchemeFile& f, int index, double dx, double dy) {
    if (index < 0 || index >= static_cast<int>(f.elements.size()) || !std::isfinite(dx) || !std::isfinite(dy)) return;
    SchemeElement& e = f.elements[static_cast<std::size_t>(index)];
    e.x1 += dx;
    e.y1 += dy;
    if (IsLineElement(e.code)) {
        e.x2 += dx;
        e.y2 += dy;
    }
}

}  // namespace kv
