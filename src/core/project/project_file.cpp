#include "project/project_file.h"

#include <system_error>

#include "project/box_meaning.h"
#include "project/project.h"
#include "project/project_io.h"
#include "shell/files.h"
#include "shell/number_checks.h"
#include "shell/numbers.h"
#include "shell/separators.h"
#include "shell/settings.h"
#include "shell/staged_writes.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {
namespace fs = std::filesystem;

namespace {

struct Companion {
    const char* extension;
    const char* workingFile;
};
constexpr Companion kCompanions[9] = {{".rlt", "Rhrltg.DAT"}, {".vlt", "Stklst.DAT"},  {".alt", "Vrdlst.DAT"},
                                      {".flt", "Flansh.DAT"}, {".ped", "PEDlist.dat"}, {".Exp", "Export.dat"},
                                      {".cal", "KV_Calc.dat"}, {".vtd", "V_CHANGE.DAT"}, {".atd", "A_CHANGE.DAT"}};

// The stem of a project file: its name less the last four characters.
std::string Stem(const std::string& fileName) {
    return fileName.size() >= 4 ? fileName.substr(0, fileName.size() - 4) : std::string();
}

EmbeddedFile LineSizeFile(const std::string& plantType) {
    return IsTwoStagePlant(plantType) ? kTwoStageLineSizes : kEmbeddedFiles[2];
}

// Copies a file byte for byte; false when the source is missing.
bool CopyFile(const Workspace& ws, const fs::path& from, const fs::path& to) {
    std::error_code ec;
    if (!fs::is_regular_file(from, ec)) return false;
    return WriteWorkingFile(ws, to, ReadWholeFile(from));
}

}  // namespace

bool PlantTypeHasProjectFile(const std::string& t) {
    return t == plant::Komp || t == plant::TwoStage || t == plant::HeatP || t == plant::HeatPump2st;
}

std::string ProjectFileName(const std::string& projektDatei, const std::string& projektNam) {
    const std::string work = CleanName(0, projektNam);
    std::string name = projektDatei;
    if (Trim(name).empty() || UpperAscii(Trim(name)) == ".PRJ") name = work + ".prj";
    const std::string last4 = name.size() >= 4 ? name.substr(name.size() - 4) : name;
    if (UpperAscii(Trim(last4)) != ".PRJ") {
        const std::string t(Trim(name));
        // The cut of four characters does not look for a point: "ABCDEFG"
        // becomes "ABC.PRJ". A shorter name leaves ".PRJ" alone.
        name = (t.size() >= 4 ? t.substr(0, t.size() - 4) : std::string()) + ".PRJ";
    }
    return name;
}

std::string PackAuxiliaryData(Workspace& ws) {
    if (FileLength(ws, "SubAct.dat") == 0) ResetAuxiliaryData(ws, 1);
    std::string pack;
    for (const std::string& v : ReadAuxiliaryValues(ws)) pack += v + std::string(sep::AuxItem);
    for (const std::string& v : ReadEnergyValues(ws)) pack += v + std::string(sep::AuxItem);
    return pack;
}

void UnpackAuxiliaryData(Workspace& ws, const std::string& pack) {
    if (pack.find(sep::AuxItem) == std::string::npos) {
        ResetAuxiliaryData(ws, 1);
        ResetAuxiliaryData(ws, 2);
        return;
    }
    std::vector<std::string> pieces = SplitJoined(pack, sep::AuxItem);
    pieces.resize(16);  // 15 pieces and what follows the last separator
    {
        OutFile out = OpenOut(ws, "SubAct.dat");
        for (int i = 0; i < kAuxiliaryCount; ++i) out.Write().Item(pieces[static_cast<std::size_t>(i)]).EndLine();
    }
    OutFile out = OpenOut(ws, "enerACT.dat");
    for (int i = kAuxiliaryCount; i < kAuxiliaryCount + kEnergyCount; ++i)
        out.Write().Item(pieces[static_cast<std::size_t>(i)]);
    out.Write().EndLine();
}

void CopyCompanionsToProject(Workspace& ws, const std::string& projectFileName, const std::string& directory) {
    const std::string stem = Stem(projectFileName);
    for (const Companion& c : kCompanions) {
        const std::string target = directory + stem + c.extension;
        DeleteFile(ws, target);
        CopyFile(ws, ResolveName(ws, c.workingFile), ResolveName(ws, target));
    }
}

void CopyCompanionsFromProject(Workspace& ws, const std::string& projectFileName, const std::string& directory) {
    const std::string stem = Stem(projectFileName);
    for (const Companion& c : kCompanions) {
        // The working file goes first; a missing companion leaves it deleted.
        DeleteFile(ws, c.workingFile);
        CopyFile(ws, ResolveName(ws, directory + stem + c.extension), ResolveName(ws, c.workingFile));
    }
}

std::vector<std::string> CompanionExtensions() {
    std::vector<std::string> out;
    for (const Companion& c : kCompanions) out.emplace_back(c.extension);
    return out;
}

bool DeleteProject(Workspace& ws, const std::string& filePath) {
    const fs::path path = ResolveName(ws, filePath);
    const std::string stem = Stem(path.filename().string());
    for (const Companion& c : kCompanions) DeleteFile(ws, (path.parent_path() / (stem + c.extension)).string());
    return DeleteFile(ws, path.string());
}

SaveResult SaveProject(Workspace& ws, const std::string& plantType, const std::string& directory) {
    Project& p = ws.project;
    const Captions& c = ws.captions;
    p.ProjektDatei = ProjectFileName(p.ProjektDatei, p.ProjektNam);
    const std::string target = directory + p.ProjektDatei;
    if (p.ProjektDatei != "Temp_pr.prj" && FileLength(ws, target) >= 1) {
        const std::string text = c[Cap::ProjectWord] + " " + c[Cap::AlreadyExists] + " !" + ws.lineEnd +
                                 c[Cap::Overwrite] + " ?";
        if (!ws.ui.AskYesNo(c[Cap::SaveAs], text)) return SaveResult::Declined;
    }
    if (!PlantTypeHasProjectFile(plantType)) return SaveResult::PlantTypeNotSaved;

    const bool twoStage = IsTwoStagePlant(plantType);
    const ArmaturGrid& A = p.Armatur;
    const GeometrGrid& G = p.Geometr;
    OutFile out = OpenOut(ws, target);
    RecordWriter& w = out.Write();
    // Line 1: the only place where a double quote of the name would break
    // the items, so its first one is turned into two apostrophes.
    w.Item(CleanName(1, p.ProjektNam)).Item(p.ProBeschr).Item(p.ProjektDatum).Item(plantType).Item(p.KaelteM)
        .Item(p.RohrDatei).Item(p.VierWege).Item(PackAuxiliaryData(ws)).Item(p.tmin).EndLine();
    w.Item(p.AuftrGNo).Item(p.Combo1).EndLine();
    for (const std::string* cell : {&A.Cell(13, 5), &A.Cell(12, 3), &A.Cell(12, 2), &A.Cell(11, 2), &G.Cell(6, 1)})
        w.Item(*cell).EndLine();
    w.Item(p.TeilL).EndLine();
    w.Item(p.EcoFlag).EndLine();
    for (const std::string* f : {&p.Leistung, &p.Tver, &p.tko, &p.dhSL, &p.dtVerd, &p.dtKond}) w.Item(*f).EndLine();
    for (int col = 1; col <= 10; ++col)
        for (int row = 1; row <= 8; ++row) w.Item(A.Cell(col, row)).EndLine();
    // Each Geometr cell is followed by a truly empty line, as the layout has it.
    for (int row = 1; row <= 4; ++row)
        for (int col = 1; col <= 4; ++col) w.Item(G.Cell(col, row)).EndLine().Line("");
    for (int row = 1; row <= 4; ++row) w.Item(G.Cell(5, row)).EndLine();
    w.Item(p.KompHub).EndLine();
    w.Item(p.VerdArt).EndLine();
    w.Item(p.VerdVol).EndLine();
    w.Item(p.KondVol).EndLine();
    w.Item(std::to_string(p.KondArt)).EndLine();  // a text here, read back as an Integer
    for (const std::string* f : {&p.lkondl, &p.DKondL, &p.loelL, &p.doelL}) w.Item(*f).EndLine();
    if (twoStage) {
        for (int row = 1; row <= 4; ++row)
            for (int col = 6; col <= 9; ++col) w.Item(G.Cell(col, row)).EndLine().Line("");
        w.Item(p.ZweiteStufe).EndLine();
    }
    for (int row = 1; row <= 3; ++row)
        for (int col = 7; col <= 8; ++col) w.Item(twoStage ? std::string() : G.Cell(col, row)).EndLine();
    w.Item(std::to_string(p.AbtauArt)).EndLine();
    w.Item(std::to_string(p.VierWege)).EndLine();
    w.Item(std::to_string(p.HGBypass)).EndLine();
    w.Item(p.WaermeTauscher).Item(p.PairText).Item(p.CountryKey).EndLine();
    w.Item(p.Location).Item(p.HeizL).Item(p.RGCombo).Item(p.InverterMin).Item(p.InverterMax)
        .Item(std::to_string(p.OelKuehler) + std::string(sep::OilCooler) + std::string(Trim(p.ElStandard)))
        .EndLine();
    w.Item(p.ExVCombo).Item(p.P_mittel).Item(p.P_gasK).Item(A.Cell(15, 1))
        .Item(p.Text12 + std::string(sep::Text12Parallel) + std::to_string(p.ParalLeit)).Item(A.Cell(14, 2))
        .EndLine();

    // The working files, each with its fixed count of lines.
    for (EmbeddedFile f : kEmbeddedFiles) {
        if (std::string_view(f.name) == "onestDM.dat") f = LineSizeFile(plantType);
        RecordReader in = OpenIn(ws, f.name);
        std::string line;
        for (int i = 0; i < f.lines; ++i) {
            if (!in.ReadLine(line)) line.clear();
            w.Line(line);
        }
    }
    if (!out.Close()) return SaveResult::Failed;
    CopyCompanionsToProject(ws, p.ProjektDatei, directory);
    return SaveResult::Saved;
}

std::optional<SaveResult> SaveUnderKnownName(Workspace& ws) {
    Project& p = ws.project;
    const std::string name(Trim(p.ProjektDatei));
    if (name.empty() || UpperAscii(name) == ".PRJ") return std::nullopt;
    std::string dir = p.ProjektVerz;
    if (!dir.empty() && dir.back() != '/' && dir.back() != '\\') dir += '/';
    return SaveProjectAndTell(ws, p.AnlagenTyp, dir);
}

bool LoadProject(Workspace& ws, std::string& plantType, const std::string& filePath, const std::string& directory) {
    Project& p = ws.project;
    const Captions& c = ws.captions;
    if (PlantTypeHasProjectFile(plantType)) {
        RecordReader in = OpenIn(ws, filePath);
        const std::string pipeBefore = p.RohrDatei;

        // Line 1; the project date of the file is read and dropped.
        std::string date, pipe, pack;
        in.Read(p.ProjektNam);
        in.Read(p.ProBeschr);
        in.Read(date);
        in.Read(plantType);
        in.Read(p.KaelteM);
        in.Read(pipe);
        in.Read(p.VierWege);
        in.Read(pack);
        in.Read(p.tmin);
        UnpackAuxiliaryData(ws, pack);
        p.RohrDatei = pipe.size() < 5 ? pipeBefore : pipe;

        // Line 2, with the compressor box of old files mended.
        in.Read(p.AuftrGNo);
        in.Read(p.Combo1);
        const std::string firstKind = c[Cap::CompressorKindFirst], secondKind = c[Cap::CompressorKindSecond];
        const std::string secondDrive = c[Cap::CompressorDriveSecond];
        if (Trim(p.Combo1).empty() || p.Combo1 == firstKind) p.Combo1 = secondDrive + " - " + firstKind;
        else if (p.Combo1 == secondKind) p.Combo1 = secondDrive + " - " + secondKind;
        p.Combo1 = BoxTextInCurrentLanguage(ws, BoxKind::Compressor, p.Combo1);

        // Grid cells. A read past the end leaves the cell as it was.
        auto cell = [&in](std::string& target, int rule) {
            std::string v;
            if (!in.Read(v)) return;
            if (rule == 1 && Trim(v).size() > 1) v.clear();  // single-digit cells of rows 3 to 6
            if (rule == 2 && v == "0") v.clear();            // a zero temperature comes back empty
            if (rule == 3 && v == "0 ") v.clear();
            target = v;
        };
        auto skip = [&in] {
            std::string dropped;
            in.Read(dropped);
        };
        ArmaturGrid& A = p.Armatur;
        GeometrGrid& G = p.Geometr;
        cell(A.Cell(13, 5), 1);
        cell(A.Cell(12, 3), 1);
        cell(A.Cell(12, 2), 1);
        cell(A.Cell(11, 2), 1);
        cell(G.Cell(6, 1), 2);
        in.Read(p.TeilL);
        in.Read(p.EcoFlag);
        for (std::string* f : {&p.Leistung, &p.Tver, &p.tko, &p.dhSL, &p.dtVerd, &p.dtKond}) in.Read(*f);
        for (int col = 1; col <= 10; ++col)
            for (int row = 1; row <= 8; ++row) cell(A.Cell(col, row), 2);
        for (int row = 1; row <= 4; ++row)
            for (int col = 1; col <= 4; ++col) {
                cell(G.Cell(col, row), 2);
                skip();
            }
        for (int row = 1; row <= 4; ++row) cell(G.Cell(5, row), 2);
        cell(p.KompHub, 2);
        in.Read(p.VerdArt);
        cell(p.VerdVol, 3);
        cell(p.KondVol, 2);
        in.Read(p.KondArt);
        for (std::string* f : {&p.lkondl, &p.DKondL, &p.loelL, &p.doelL}) in.Read(*f);
        if (IsTwoStagePlant(plantType)) {
            for (int row = 1; row <= 4; ++row)
                for (int col = 6; col <= 9; ++col) {
                    cell(G.Cell(col, row), 2);
                    skip();
                }
            in.Read(p.ZweiteStufe);
        }
        for (int row = 1; row <= 3; ++row)
            for (int col = 7; col <= 8; ++col) {
                if (IsTwoStagePlant(plantType)) skip();
                else cell(G.Cell(col, row), 0);
            }
        in.Read(p.AbtauArt);
        in.Read(p.VierWege);
        in.Read(p.HGBypass);
        in.Read(p.WaermeTauscher);
        in.Read(p.PairText);
        in.Read(p.CountryKey);
        in.Read(p.Location);
        in.Read(p.HeizL);
        in.Read(p.RGCombo);
        in.Read(p.InverterMin);
        in.Read(p.InverterMax);
        std::string oil;
        if (in.Read(oil)) {
            const std::string o(TrimLeft(oil));
            const auto at = o.find(sep::OilCooler);
            RoundedInteger(ToNumber(std::string_view(o).substr(0, at)).value, p.OelKuehler);
            p.ElStandard = at == std::string::npos ? std::string() : std::string(Trim(o.substr(at + sep::OilCooler.size())));
        }
        if (Trim(p.ElStandard).empty()) p.ElStandard = ElStandardText(ws, plantType, 1);
        in.Read(p.ExVCombo);
        p.ExVCombo = BoxTextInCurrentLanguage(ws, BoxKind::Valve, p.ExVCombo);
        in.Read(p.P_mittel);
        in.Read(p.P_gasK);
        cell(A.Cell(15, 1), 0);
        std::string text12;
        if (in.Read(text12)) {
            const auto at = text12.find(sep::Text12Parallel);
            if (at != std::string::npos) {
                p.Text12 = text12.substr(0, at);
                RoundedInteger(ToNumber(std::string_view(text12).substr(at + sep::Text12Parallel.size())).value,
                               p.ParalLeit);
            } else {
                p.Text12 = text12;
            }
        }
        cell(A.Cell(14, 2), 0);
        if (p.P_mittel.empty()) p.P_mittel = "5";

        // The working files from the embedded blocks.
        for (EmbeddedFile f : kEmbeddedFiles) {
            if (std::string_view(f.name) == "onestDM.dat") f = LineSizeFile(plantType);
            OutFile out = OpenOut(ws, f.name);
            std::string line;
            for (int i = 0; i < f.lines; ++i) {
                if (!in.ReadLine(line)) line.clear();
                out.Line(line);
            }
        }
        CopyCompanionsFromProject(ws, fs::path(filePath).filename().string(), directory);
    } else {
        return false;
    }
    if (Trim(p.ProjektDatum).empty()) p.ProjektDatum = DateText(ws.settings.DatumFormat);
    return true;
}

}  // namespace kv
