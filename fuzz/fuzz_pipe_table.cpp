// Drives the pipe table readers with arbitrary bytes: the table of the
// calculation, the editor grid, the old-layout migration and the fitting
// generator all read the same kind of file.
#include <cstddef>
#include <cstdint>
#include <string>

#include "lines/fittings.h"
#include "lines/pipe_editor.h"
#include "lines/pipe_files.h"
#include "lines/pipe_table.h"
#include "shell/records.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    kv::PipeTable table;
    kv::RecordReader in(text);
    const kv::PipeTableRead r = kv::ReadPipeTable(in, table);
    if (r.rows < 0 || r.rows > kv::kPipeRows || table.PipeRowCount != r.rows) __builtin_trap();
    for (int mode = 1; mode <= 6; ++mode) (void)kv::PipeLookup(table, 20.0, mode, "22 x 1");

    kv::PipeEditor editor;
    kv::RecordReader grid(text);
    kv::ReadPipeEditor(grid, editor);
    (void)kv::PipeEditorText(editor);

    kv::RecordReader old(text);
    (void)kv::MigrateOldPipeText(old, true);
    for (int kind : {1, 6, 7, 8, 14, 15}) {
        kv::RecordReader source(text);
        (void)kv::FittingRows(source, kind, "R");
    }
    return 0;
}
