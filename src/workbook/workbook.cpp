#include "workbook/workbook.h"

#include <cstdio>
#include <filesystem>
#include <string>

#include <xlsxwriter.h>

#include "shell/numbers.h"

namespace kvbook {

namespace {

// "C15" to row 14, column 2 (both from 0).
bool CellOf(const std::string& name, lxw_row_t& row, lxw_col_t& col) {
    std::size_t i = 0;
    int c = 0;
    while (i < name.size() && name[i] >= 'A' && name[i] <= 'Z') c = c * 26 + (name[i++] - 'A' + 1);
    int r = 0;
    while (i < name.size() && name[i] >= '0' && name[i] <= '9') r = r * 10 + (name[i++] - '0');
    if (c == 0 || r == 0 || i != name.size()) return false;
    row = static_cast<lxw_row_t>(r - 1);
    col = static_cast<lxw_col_t>(c - 1);
    return true;
}

// A number cell when the whole text is a number, read without the locale.
bool AsNumber(const std::string& text, double& value) {
    if (text.empty() || text.find_first_not_of("0123456789.-+ ") != std::string::npos) return false;
    value = kv::ToNumber(text);
    return true;
}

}  // namespace

bool WriteWorkbook(const std::string& path, const kv::WorkbookContent& content, const std::string& sheetName,
                   std::string& error) {
    // Written beside the target and renamed over it: a failure leaves the old file.
    const std::string temporary = path + ".part";
    lxw_workbook* book = workbook_new(temporary.c_str());
    if (!book) {
        error = "cannot create " + path;
        return false;
    }
    std::string name = sheetName.substr(0, 31);
    for (char& ch : name)
        if (ch == '[' || ch == ']' || ch == ':' || ch == '*' || ch == '?' || ch == '/' || ch == '\\') ch = '_';
    lxw_worksheet* sheet = workbook_add_worksheet(book, name.empty() ? nullptr : name.c_str());
    lxw_format* bold = workbook_add_format(book);
    format_set_bold(bold);
    lxw_format* head = workbook_add_format(book);
    format_set_bold(head);
    format_set_bottom(head, LXW_BORDER_THIN);
    lxw_format* quantity = workbook_add_format(book);
    format_set_num_format(quantity, "0.##");
    worksheet_set_column(sheet, 0, 0, 8, nullptr);
    worksheet_set_column(sheet, 1, 1, 6, nullptr);
    worksheet_set_column(sheet, 2, 2, 42, nullptr);
    worksheet_set_column(sheet, 3, 3, 24, nullptr);
    worksheet_set_column(sheet, 4, 4, 28, nullptr);
    worksheet_set_column(sheet, 5, 6, 16, nullptr);

    for (const kv::WorkbookCell& c : content.head) {
        lxw_row_t row = 0;
        lxw_col_t col = 0;
        if (!CellOf(c.cell, row, col)) continue;
        const bool label = !c.text.empty() && c.text.back() == ':';
        worksheet_write_string(sheet, row, col, c.text.c_str(), label ? bold : nullptr);
    }
    static const char* heads[7] = {"n", "", "", "", "", " d = ", ""};
    for (lxw_col_t col = 0; col < 7; ++col) worksheet_write_string(sheet, 19, col, heads[col], head);
    lxw_row_t row = 20;
    for (const auto& r : content.rows) {
        for (lxw_col_t col = 0; col < 7; ++col) {
            double v = 0;
            // Quantities are numbers; every other cell, sizes included, a string.
            if (col == 0 && AsNumber(r[col], v)) worksheet_write_number(sheet, row, col, v, quantity);
            else worksheet_write_string(sheet, row, col, r[col].c_str(), nullptr);
        }
        ++row;
    }
    const lxw_error rc = workbook_close(book);
    if (rc != LXW_NO_ERROR) {
        error = std::string(lxw_strerror(rc));
        std::remove(temporary.c_str());
        return false;
    }
    std::error_code ec;
    std::filesystem::rename(temporary, path, ec);
    if (ec) {
        error = ec.message();
        std::filesystem::remove(temporary, ec);
        return false;
    }
    return true;
}

}  // namespace kvbook
