// A grid of text cells addressed from 1 by column and row, as the screen's
// grids and the files address them. A cell outside the grid reads as empty
// and takes no writes, so a damaged file never writes past the end.
#pragma once

#include <array>
#include <string>

namespace kv {

template <int Cols, int Rows>
class TextGrid {
public:
    static constexpr int kCols = Cols;
    static constexpr int kRows = Rows;

    std::string& Cell(int col, int row) {
        if (!Inside(col, row)) { spare_.clear(); return spare_; }
        return cells_[Index(col, row)];
    }
    const std::string& Cell(int col, int row) const {
        static const std::string empty;
        return Inside(col, row) ? cells_[Index(col, row)] : empty;
    }
    static constexpr bool Inside(int col, int row) {
        return col >= 1 && col <= Cols && row >= 1 && row <= Rows;
    }
    // Empties the cells of columns 1..cols and rows 1..rows.
    void Clear(int cols = Cols, int rows = Rows) {
        for (int c = 1; c <= cols && c <= Cols; ++c)
            for (int r = 1; r <= rows && r <= Rows; ++r) cells_[Index(c, r)].clear();
    }
    bool operator==(const TextGrid&) const = default;

private:
    static constexpr int Index(int col, int row) { return (col - 1) * Rows + (row - 1); }
    std::array<std::string, Cols * Rows> cells_{};
    std::string spare_;
};

}  // namespace kv
