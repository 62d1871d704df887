// The diagram command: the h,log p diagram of a project, or of a fluid at two
// temperatures, written as PNG, SVG or PDF.
#include <cstdlib>
#include <iostream>
#include <string>

#include "cli.h"

#ifdef KELVARIS_WITH_RENDER
#include <QByteArray>
#include <QGuiApplication>
#include <QString>

#include "cycle/diagram.h"
#include "cycle/scheme_screen.h"
#include "project/data_screen.h"
#include "refrigerant/registry.h"
#include "offscreen_app.h"
#include "render/render.h"
#include "shell/numbers.h"
#include "shell/text.h"
#endif

namespace kvcli {

#ifndef KELVARIS_WITH_RENDER

int CmdDiagram(const Options&) {
    std::cerr << "kelvaris-cli: the diagram command is not built into this program (it needs Qt 6 Gui and Svg)\n";
    return 1;
}

#else

namespace {

constexpr const char* kDiagramUsage =
    "usage: kelvaris-cli diagram PROJECT.prj --out FILE.png|.svg|.pdf\n"
    "       kelvaris-cli diagram --fluid NAME --t0 C --tc C --out FILE.png|.svg|.pdf";

std::string Value(const Options& o, const char* key) {
    const auto it = o.values.find(key);
    return it == o.values.end() ? std::string() : it->second;
}

bool PictureSuffix(const std::string& path) {
    const std::string lower = kv::UpperAscii(path);
    for (const char* s : {".PNG", ".SVG", ".PDF"}) {
        const std::string suffix = s;
        if (lower.size() > suffix.size() && lower.compare(lower.size() - suffix.size(), suffix.size(), suffix) == 0)
            return true;
    }
    return false;
}

}  // namespace

int CmdDiagram(const Options& o) {
    const std::string out = Value(o, "out");
    if (out.empty()) return Fail(kDiagramUsage);
    if (!PictureSuffix(out)) return Fail("the picture file must end in .png, .svg or .pdf: " + out);
    const std::string fluid = Value(o, "fluid");
    const bool quickLook = o.args.size() == 1;
    if (quickLook == fluid.empty() || o.args.size() > 2) return Fail(kDiagramUsage);

    kv::Workspace ws = MakeWorkspace(o);
    double t0 = 0, tc = 0;
    if (quickLook) {
        if (!NumberArg(Value(o, "t0"), t0) || !NumberArg(Value(o, "tc"), tc)) return Fail(kDiagramUsage);
        ws.project.KaelteM = fluid;
        kv::NormalizeRefrigerantName(ws.project);
        if (!kv::LookupRefrigerantTable(ws.project.KaelteM)) return Fail("unknown refrigerant: " + fluid);
        ws.project.ProjektNam.clear();
        ws.project.Tver = kv::NumberText(t0);
        ws.project.tko = kv::NumberText(tc);
    } else {
        // The project's operating point as the desktop draws it: after the
        // calculation, with its gas cooler and intermediate pressures.
        int code = 0;
        kv::SchemeScreen scheme;
        if (!CalculateProject(o, ws, scheme, code)) return code;
    }

    // The project file does not keep the CO2 mode: CO2 is drawn with the
    // gas cooler rules, its high side on the gas cooler pressure.
    if (kv::IsCo2(ws.project.KaelteM) && ws.project.Co2Mode == 0) ws.project.Co2Mode = 1;
    kv::DiagramWindow window = kv::OpenDiagramWindow(ws);
    if (quickLook) {
        // The quick look keeps the temperatures as given, fractions included.
        window[kv::TrimField::Evaporating].text = kv::NumberText(t0);
        window[kv::TrimField::Condensing].text = kv::NumberText(tc);
    }
    const kv::DrawingList drawing = kv::Play_DiaG(ws, window);
    if (drawing.Empty()) {
        std::cerr << "kelvaris-cli: no property table for " << ws.project.KaelteM << "\n";
        return 1;
    }

    nlohmann::json j;
    j["out"] = out;
    j["refrigerant"] = window.fluid;
    j["tableFile"] = window.scales.tableFile;
    j["t0"] = window[kv::TrimField::Evaporating].text;
    j["tc"] = window[kv::TrimField::Condensing].text;
    if (window.cycle.valid) {
        j["pEvap"] = window.cycle.pEvap;
        j["pCond"] = window.cycle.pCond;
        j["tDischargeC"] = window.cycle.tDischargeC;
        j["EER"] = window.figures.EER_ACT;
    }

    const OffscreenApp app;
    QString error;
    const QString title = QString::fromStdString(window.fluid + " h,log p");
    if (!kv::render::WritePicture(drawing, QString::fromStdString(out), title, &error)) {
        std::cerr << "kelvaris-cli: " << error.toStdString() << "\n";
        return 1;
    }
    Print(o, j);
    return 0;
}

#endif

}  // namespace kvcli
