#include "lines/pipe_editor.h"

#include "lines/pipe_files.h"
#include "lines/pipe_table.h"
#include "shell/files.h"
#include "shell/number_checks.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

namespace {

constexpr std::array<int, kPipeFields + 1> kColumnOfField = {0, 1, 2, 3, 7, 8, 9, 6, 10, 11, 4, 5, 12, 13, 14, 15};

// Every double quote as two apostrophes: a quote would end the item early.
std::string NoQuotes(std::string_view s) {
    std::string out;
    for (char c : s) {
        if (c == '"') out += "''";
        else out += c;
    }
    return out;
}

std::string Stem(std::string_view file) {
    const std::size_t slash = file.find_last_of("/\\");
    if (slash != std::string_view::npos) file.remove_prefix(slash + 1);
    const std::size_t dot = file.rfind('.');
    if (dot != std::string_view::npos) file = file.substr(0, dot);
    return UpperAscii(Trim(file));
}

void ShowMessage(Workspace& ws, int number, const char* fallback) {
    const std::string& text = ws.captions.Message(number);
    ws.ui.Message(ws.Title(), text.empty() ? std::string(fallback) : text, MessageIcon::Information);
}

}  // namespace

int EditorColumn(int field) {
    return field >= 1 && field <= kPipeFields ? kColumnOfField[static_cast<std::size_t>(field)] : 0;
}

void ReadPipeEditor(RecordReader& in, PipeEditor& editor) {
    editor.grid.Clear();
    std::string header;
    in.ReadLine(header);
    for (int row = 1; row <= kEditorRows && !in.AtEnd(); ++row)
        for (int field = 1; field <= kPipeFields; ++field) {
            std::string item;
            in.Read(item);
            editor.grid.Cell(EditorColumn(field), row) = item;
        }
}

PipeEditor LoadPipeEditor(const Workspace& ws, std::string_view file) {
    PipeEditor editor;
    editor.file = std::string(file);
    RecordReader in = OpenIn(ws, file);
    ReadPipeEditor(in, editor);
    return editor;
}

std::string PipeEditorText(const PipeEditor& editor) {
    RecordWriter w;
    w.Item(kPipeHeaderYear).Item(kPipeHeaderVersion).EndLine();
    for (int row = 1; row <= kEditorRows; ++row) {
        const std::string& da = editor.grid.Cell(EditorColumn(pipefield::Da), row);
        const std::string& di = editor.grid.Cell(EditorColumn(pipefield::Di), row);
        if (ToNumber(std::string_view(da)).value == 0.0 || ToNumber(std::string_view(di)).value == 0.0) continue;
        for (int field = 1; field <= kPipeFields; ++field) {
            const std::string& cell = editor.grid.Cell(EditorColumn(field), row);
            // The name goes through the cleaner of file texts (its first quote
            // becomes two apostrophes); any further quote is treated alike.
            w.Item(NoQuotes(field == pipefield::Name ? CleanName(1, cell) : cell));
        }
        w.EndLine();
    }
    return w.Take();
}

std::vector<std::string> CheckPipeEditor(const Workspace& ws, const PipeEditor& editor) {
    // Diameters in mm; prices per metre; p zul in bar; minutes per metre.
    static constexpr NumberRange kDiameter{0, 5000, true}, kPrice{0, 1e9}, kPressure{0, 1000}, kMinutes{0, 1e5};
    struct Column {
        int col;
        const NumberRange* range;
    };
    static constexpr Column kColumns[] = {{2, &kDiameter}, {3, &kDiameter}, {4, &kPrice}, {5, &kPressure},
                                          {6, &kMinutes}};
    std::vector<std::string> messages;
    for (int row = 1; row <= kEditorRows; ++row) {
        bool blank = true;
        for (int c = 1; c <= 6; ++c) blank = blank && Trim(editor.grid.Cell(c, row)).empty();
        if (blank) continue;
        for (const Column& c : kColumns) {
            // An inch size may carry its inch mark ("5\""); da and di must be
            // there, an empty one is refused like a 0.
            std::string text(Trim(editor.grid.Cell(c.col, row)));
            while (c.col <= 3 && !text.empty() && (text.back() == '"' || text.back() == '\'')) text.pop_back();
            if (c.col <= 3 && Trim(text).empty()) text = "0";
            CheckNumberField(ws, messages, EditorHeading(ws, c.col) + " (" + std::to_string(row) + ")", text,
                             *c.range);
        }
    }
    return messages;
}

bool SavePipeEditor(Workspace& ws, const PipeEditor& editor) {
    if (Trim(editor.file).empty()) return false;
    if (!ShowFieldMessages(ws, CheckPipeEditor(ws, editor))) return false;
    return WriteFileAtomic(ResolveName(ws, editor.file), PipeEditorText(editor));
}

void InsertEditorRow(PipeEditor& editor, int row) {
    if (row < 1 || row > kEditorRows) return;
    for (int r = kEditorRows; r > row; --r)
        for (int c = 1; c <= kEditorColumns; ++c) editor.grid.Cell(c, r) = editor.grid.Cell(c, r - 1);
    for (int c = 1; c <= kEditorColumns; ++c) editor.grid.Cell(c, row).clear();
}

void DeleteEditorRow(PipeEditor& editor, int row) {
    if (row < 1 || row > kEditorRows) return;
    for (int r = row; r < kEditorRows; ++r)
        for (int c = 1; c <= kEditorColumns; ++c) editor.grid.Cell(c, r) = editor.grid.Cell(c, r + 1);
    for (int c = 1; c <= kEditorColumns; ++c) editor.grid.Cell(c, kEditorRows).clear();
}

void CopyEditorRow(PipeEditor& editor, int row) {
    if (row < 1 || row > kEditorRows) return;
    for (int c = 1; c <= kEditorColumns; ++c) editor.clipboard[static_cast<std::size_t>(c)] = editor.grid.Cell(c, row);
    editor.hasClipboard = true;
}

void PasteEditorRow(PipeEditor& editor, int row) {
    if (!editor.hasClipboard || row < 1 || row > kEditorRows) return;
    for (int c = 1; c <= kEditorColumns; ++c) editor.grid.Cell(c, row) = editor.clipboard[static_cast<std::size_t>(c)];
}

std::string EditorHeading(const Workspace& ws, int column) {
    const std::string& metre = ws.captions[Cap::UnitMetre];
    const std::string unit = metre.empty() ? "m" : metre;
    switch (column) {
    case 1: return ws.captions[Cap::PipeColName];
    case 2: return "da/[mm]";
    case 3: return "di/[mm]";
    case 4: return ws.captions[Cap::Price] + "/" + ws.settings.Waehrung + "/[" + unit + "]";
    case 5: return " p zul /[bar g]";
    case 6: return ws.captions[Cap::AssemblyTime] + " /[min/[" + unit + "]";
    case 10: return ws.captions[Cap::MaterialPrice];
    case 11: return ws.captions[Cap::LabourPrice];
    default: return {};
    }
}

std::string EditorTitle(const Workspace& ws, std::string_view file) {
    const std::string stem = Stem(file);
    Cap cap = Cap::PipeUser;
    if (stem == "ROHRDM" || stem == "ROHRIN") cap = Cap::PipeCopper;
    else if (stem == "ROHRDS") cap = Cap::PipeSteel;
    else if (stem == "ROHRK65") cap = Cap::PipeK65;
    else if (stem == "ROHRPI") cap = Cap::PipeSeriesOne;
    else if (stem == "ROHRPII") cap = Cap::PipeSeriesTwo;
    return ws.captions[cap] + SeriesTag(file);
}

bool RestorePipeTable(Workspace& ws, PipeEditor& editor) {
    MigratePipeTables(ws, 2);
    const std::string factory = FactoryCopyOf(editor.file);
    if (factory.empty() || FileLength(ws, factory) == 0) {
        ShowMessage(ws, 32, "There is no factory table for this pipe series.");
        return false;
    }
    const std::string& question = ws.captions.Message(31);
    if (!ws.ui.AskYesNo(ws.Title(), question.empty()
                                         ? std::string("Restore the factory table of this pipe series?")
                                         : question))
        return false;
    RecordReader in = OpenIn(ws, factory);
    std::string header;
    in.ReadLine(header);  // replaced by the current one
    RecordWriter w;
    w.Item(kPipeHeaderYear).Item(kPipeHeaderVersion).EndLine();
    while (!in.AtEnd()) {
        for (int field = 1; field <= kPipeFields; ++field) {
            std::string item;
            in.Read(item);
            w.Item(item);
        }
        w.EndLine();
    }
    if (!WriteFileAtomic(ResolveName(ws, editor.file), w.Text())) return false;
    RecordReader again = OpenIn(ws, editor.file);
    ReadPipeEditor(again, editor);
    return true;
}

}  // namespace kv
