// Writes the enquiry workbook (.xlsx) from the cells the core composed: the
// head cells, the column heads in row 20 and the rows from sheet row 21 in
// columns A to G, quantities and prices as numbers, every text as a string.
#pragma once

#include <string>

#include "lists/costing.h"

namespace kvbook {

// False, with `error` set, when the file could not be written.
bool WriteWorkbook(const std::string& path, const kv::WorkbookContent& content, const std::string& sheetName,
                   std::string& error);

}  // namespace kvbook
