// The report command: calculates a project, generates its lists, writes its
// result sets and protocols and lays out the whole report as one PDF.
#include <cstdlib>
#include <iostream>
#include <string>

#include "cli.h"

#ifdef KELVARIS_WITH_RENDER
#include <QByteArray>
#include <QGuiApplication>
#include <QString>

#include "compliance/ped.h"
#include "cycle/scheme_screen.h"
#include "documents/report_layout.h"
#include "documents/scheme_generator.h"
#include "lists/calc_lists.h"
#include "lists/list_generation.h"
#include "lists/list_rows.h"
#include "offscreen_app.h"
#include "render/render.h"
#include "shell/files.h"
#endif

namespace kvcli {

#ifndef KELVARIS_WITH_RENDER

int CmdReport(const Options&) {
    std::cerr << "kelvaris-cli: the report command is not built into this program (it needs Qt 6 Gui)\n";
    return 1;
}

int CmdScheme(const Options&) {
    std::cerr << "kelvaris-cli: the scheme command is not built into this program (it needs Qt 6 Gui)\n";
    return 1;
}

#else

int CmdReport(const Options& o) {
    const auto out = o.values.find("out");
    if (o.args.size() != 2 || out == o.values.end()) return Fail("usage: kelvaris-cli report PROJECT.prj --out FILE.pdf");
    kv::Workspace ws = MakeWorkspace(o);
    int code = 0;
    kv::SchemeScreen scheme;
    int empty = 0;
    if (!CalculateWithLists(o, ws, scheme, code, &empty)) return code;
    kv::WritePlantResults(ws);
    kv::WriteHeatExchangerSheet(ws);
    kv::PedScreen ped;
    kv::OpenPedScreen(ws, ped, 1);
    kv::WritePedProtocol(ws, ped);
    kv::WriteEcoProtocol(ws);
    std::vector<kv::ReportSet> sets = kv::PlantReportSets(ws);
    for (kv::ReportSet& s : sets)
        if (s.title.find(": PED - ") != std::string::npos) s.pedCategory = ped.plantIndex;
    const std::vector<kv::DrawingList> pages = kv::LayoutReport(ws, sets);

    const OffscreenApp app;
    QString error;
    if (!kv::render::WritePdfPages(pages, QString::fromStdString(out->second), QString::fromStdString(ws.project.ProjektNam),
                                   &error)) {
        std::cerr << "kelvaris-cli: " << error.toStdString() << "\n";
        return 1;
    }
    nlohmann::json j;
    j["file"] = out->second;
    j["pages"] = pages.size();
    j["sets"] = sets.size();
    j["emptyRows"] = empty;
    Print(o, j);
    return 0;
}

int CmdScheme(const Options& o) {
    double mode = 0;
    const auto m = o.values.find("mode");
    const auto rif = o.values.find("rif");
    const auto out = o.values.find("out");
    if (o.args.size() != 2 || (rif == o.values.end() && out == o.values.end()) ||
        (m != o.values.end() && (!NumberArg(m->second, mode) || (mode != 0 && mode != 32 && mode != 132))))
        return Fail("usage: kelvaris-cli scheme PROJECT.prj [--mode 0|32|132] [--with-length] [--with-speed] [--rif FILE] [--out FILE.svg|.pdf|.png]");
    kv::Workspace ws = MakeWorkspace(o);
    int code = 0;
    kv::SchemeScreen scheme;
    if (!CalculateWithLists(o, ws, scheme, code)) return code;
    kv::SchemeOptions options;
    options.length = o.values.count("with-length") > 0;
    options.speed = o.values.count("with-speed") > 0;
    const kv::SchemeFile file = kv::ComposeScheme(ws, static_cast<int>(mode), options);
    if (rif != o.values.end() && !kv::WriteFileAtomic(rif->second, kv::SchemeText(file))) {
        std::cerr << "kelvaris-cli: cannot write " << rif->second << "\n";
        return 1;
    }
    if (out != o.values.end()) {
        const OffscreenApp app;
        QString error;
        if (!kv::render::WritePicture(kv::DrawScheme(file), QString::fromStdString(out->second),
                                      QString::fromStdString(ws.project.ProjektNam), &error)) {
            std::cerr << "kelvaris-cli: " << error.toStdString() << "\n";
            return 1;
        }
    }
    nlohmann::json j;
    j["elements"] = file.elements.size();
    j["mode"] = static_cast<int>(mode);
    Print(o, j);
    return 0;
}

#endif

}  // namespace kvcli
