#include "shell/startup.h"

#include <system_error>

#include "lines/pipe_files.h"
#include "lines/zeta.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/staged_writes.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {
namespace fs = std::filesystem;

fs::path DefaultDataDir(const Workspace& ws) { return ws.documentsDir / "Kelvaris"; }

int InstallFactoryData(Workspace& ws) {
    std::error_code ec;
    if (ws.factoryDir.empty() || !fs::is_directory(ws.factoryDir, ec)) return 0;
    const fs::path dataDir = ws.DataDir();
    fs::create_directories(dataDir, ec);
    int copied = 0;
    // Written aside and swapped in together, flushed once: a run starting
    // beside this one on a fresh directory sees each file whole or not at all.
    StagedWrites batch;
    for (fs::recursive_directory_iterator it(ws.factoryDir, ec), end; !ec && it != end; it.increment(ec)) {
        if (!it->is_regular_file(ec)) continue;
        const fs::path rel = fs::relative(it->path(), ws.factoryDir, ec);
        if (ec) continue;
        // Resolve through the data directory so that a file present in
        // another case counts as present.
        const fs::path target = ResolveName(dataDir, (dataDir / rel).string());
        if (fs::exists(target, ec)) continue;
        fs::create_directories(target.parent_path(), ec);
        batch.Put(target, ReadWholeFile(it->path()));
        ++copied;
    }
    if (const WriteFailure failure = batch.Commit()) {
        KeepWriteFailure(ws, failure);
        return 0;
    }
    return copied;
}

void PrepareWorkspace(Workspace& ws) {
    LoadSettings(ws);
    ws.lineEnd = "\r\n";
    ws.labelSuffix = " :";
    ws.project.AnlagenTyp = plant::HeatP;
    ws.factoryFilesInstalled = InstallFactoryData(ws);
    LoadCaptions(ws);
    LoadVerbCaptions(ws);
    LoadOtherCaptions(ws);
    LoadHelpTable(ws);
    ws.productName = kProductName;
    EnsureInsulationFile(ws);
    PreparePipeTables(ws);
    LoadZetaTable(ws);
}

void StartSystem(Workspace& ws) {
    PrepareWorkspace(ws);
    ws.exchange = ConsumeExchangeFile(ws);
    ws.statusWord = ws.exchange.status;
    if (ws.exchange.flag != 0 && ws.exchange.status != 0) {
        if (!ws.exchange.ProjectFile().empty()) ws.project.ProjektDatei = ws.exchange.ProjectFile();
        if (!ws.exchange.ProjectDirectory().empty()) ws.project.ProjektVerz = ws.exchange.ProjectDirectory();
    }
}

bool IsPlainStart(const Workspace& ws) { return ws.statusWord == 0 && ws.optionMark == 0; }

const std::vector<std::string_view>& WorkingFiles() {
    static const std::vector<std::string_view> files = {
        "ergDt1.DAT",  "ergDt2.DAT",  "ergDt3.DAT",  "onestDM.dat", "twostDM.dat",  "RIFliess.dat", "SchaltP.dat",
        "hx_prj1.dat", "cr_prj1.dat", "ac_prj1.dat", "SubAct.dat",  "EnerAct.dat", "SP_TempS.dat", "SP_TempD.dat"};
    return files;
}

void NewProject(Workspace& ws) {
    for (std::string_view f : WorkingFiles()) OpenOut(ws, f).Close();
    DeleteFile(ws, "Verdpark.dat");

    Project& p = ws.project;
    p.ProjektNam.clear();
    p.ProBeschr.clear();
    p.AuftrGNo.clear();
    p.LastprofilMark = 0;
    p.Armatur.Clear(13, 4);
    p.Geometr.Clear(6, 3);

    const StandardFittings f = ReadStandardFittings(ws);
    for (int col = 1; col <= 13; ++col)
        for (int row = 1; row <= 4; ++row) p.Armatur.Cell(col, row) = f.cells[col][row];
    p.Combo1 = f.kindBox.empty() ? ws.captions[Cap::CompressorKindFirst] : f.kindBox;
    // The stored defrost kind is read past; a new project starts electric.
    p.AbtauArt = 0;
    p.AbtauCombo = ws.captions[Cap::DefrostElectric];

    ResetAuxiliaryData(ws, 1);
    ResetAuxiliaryData(ws, 2);
    p.ProjektDatum = DateText(ws.settings.DatumFormat);
}

bool EndSystem(Workspace& ws) {
    const std::string title = ws.captions[Cap::EndTitle] + "  " + ws.productName;
    const std::string text = ws.captions.Message(59) + " : " + ws.productName;
    if (!ws.ui.AskYesNo(title, text)) return false;
    if (!SaveSettings(ws)) SayWriteFailures(ws, "The settings were not saved.");
    return true;
}

const std::vector<ExternalProgramInfo>& ExternalPrograms() {
    static const std::vector<ExternalProgramInfo> programs = {
        {ExternalProgram::Draw, "kelvdraw.exe"},     {ExternalProgram::Main, "kelvmain.exe"},
        {ExternalProgram::Parts, "kelvpart.exe"},    {ExternalProgram::HeatExchanger, "hx.exe"},
        {ExternalProgram::ColdRoom, "cr_load.exe"},  {ExternalProgram::AirConditioning, "AC_load.exe"},
        {ExternalProgram::Print, "kv_print.exe"},    {ExternalProgram::Viewer, "viewer.exe"}};
    return programs;
}

namespace {
std::string_view ProgramFile(ExternalProgram program) {
    for (const auto& p : ExternalPrograms())
        if (p.id == program) return p.file;
    return {};
}
}  // namespace

fs::path FindExternalProgram(const Workspace& ws, ExternalProgram program) {
    const std::string file(ProgramFile(program));
    std::string stem = file;
    if (stem.size() > 4 && EqualsNoCase(std::string_view(stem).substr(stem.size() - 4), ".exe"))
        stem.resize(stem.size() - 4);
    std::error_code ec;
    for (const fs::path& dir : {ws.programDir, ws.DataDir()}) {
        if (dir.empty()) continue;
        for (const std::string& name : {file, stem}) {
            const fs::path p = ResolveName(dir, name);
            if (fs::is_regular_file(p, ec)) return p;
        }
    }
    return {};
}

bool StartExternalProgram(Workspace& ws, ExternalProgram program) {
    const fs::path path = FindExternalProgram(ws, program);
    if (path.empty() || !ws.ui.StartDetached(path, path.parent_path())) {
        ws.ui.Message(ws.Title(), ws.captions[Cap::ProgramMissing] + " " + std::string(ProgramFile(program)),
                      MessageIcon::Error);
        return false;
    }
    return true;
}

bool HandOver(Workspace& ws, ExternalProgram program, int flag, int statusWord) {
    WriteExchangeFile(ws, flag, statusWord);
    if (!SaveSettings(ws)) SayWriteFailures(ws, "The settings were not saved.");
    return StartExternalProgram(ws, program);
}

}  // namespace kv
