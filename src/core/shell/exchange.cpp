#include "shell/exchange.h"

#include "shell/files.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

StartAction StartActionFor(int statusWord) {
    switch (statusWord) {
        case status::OpenDataScreen:
        case status::OpenDataScreen2: return StartAction::ProjectDataScreen;
        case status::LoadProject: return StartAction::LoadProjectAndDataScreen;
        case status::CatalogueEditor: return StartAction::CatalogueEditor;
        case status::PipeList: return StartAction::PipeListScreen;
        default: return StartAction::MainMenu;
    }
}

ExchangeData ReadExchangeFile(const Workspace& ws) {
    ExchangeData d;
    RecordReader in = OpenIn(ws, kExchangeFile);
    in.Read(d.flag);
    in.Read(d.status);
    if (d.flag == 0 || d.status == 0) return d;
    for (int i = 3; i <= kExchangeItems; ++i) {
        if (i == 20) in.Read(d.number20);
        else in.Read(d.item[static_cast<std::size_t>(i)]);
    }
    return d;
}

bool WriteExchangeFile(const Workspace& ws, const ExchangeData& d) {
    OutFile out = OpenOut(ws, kExchangeFile);
    RecordWriter& w = out.Write();
    w.Item(d.flag).EndLine().Item(d.status).EndLine();
    for (int i = 3; i <= kExchangeItems; ++i) {
        if (i == 20) w.Item(d.number20).EndLine();
        else w.Item(d.item[static_cast<std::size_t>(i)]).EndLine();
    }
    return out.Close();
}

bool WriteExchangeFile(Workspace& ws, int flag, int statusWord) {
    ExchangeData d = ws.exchange;  // the caller's items travel on
    const Project& p = ws.project;
    d.flag = flag;
    d.status = statusWord;
    d.item[3] = p.ProjektDatei;
    d.item[4] = p.ProjektVerz;
    d.item[10] = p.ProjektNam;
    d.item[11] = p.ProBeschr;
    d.item[12] = p.KaelteM;
    d.item[17] = p.AnlagenTyp;
    if (UpperAscii(p.AnlagenTyp) == "PUMP") d.item[18] = p.PumpText;
    d.item[19] = p.AuftrGNo;
    d.item[21] = ws.settings.Sprache;
    d.item[25] = p.ProjektDatum;
    d.item[26] = p.ElStandard;
    d.item[27] = p.WaermeTauscher;
    return WriteExchangeFile(ws, d);
}

ExchangeData ConsumeExchangeFile(Workspace& ws) {
    ExchangeData d = ReadExchangeFile(ws);
    OutFile out = OpenOut(ws, kExchangeFile);
    out.Write().Item(0).EndLine().Item(0).EndLine();
    out.Close();
    return d;
}

}  // namespace kv
