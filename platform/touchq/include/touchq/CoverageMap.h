#pragma once
// Which parts of the surface have reported a finger: the pad divided into cells of about 8 mm
// (12 x 8 cells when the pad does not declare its size); a cell is covered once a finger's
// contact has been reported in it. Positions are never joined up between frames: a finger that
// crosses a strip without being reported there leaves that strip uncovered, as a dead strip does.
#include <cstdint>
#include <optional>
#include <vector>

#include "rawkit/TouchFrame.h"
#include "touchq/PadScale.h"

namespace touchq {

class CoverageMap {
public:
    static constexpr double kCellMm = 8.0;
    static constexpr unsigned kColumnsUnknown = 12;
    static constexpr unsigned kRowsUnknown = 8;
    // More cells than a pad of 40 cm would have are more than anyone can sweep or see.
    static constexpr unsigned kMostCells = 50;

    // Rows from the top and columns from the left, from 0.
    struct Cell {
        unsigned row = 0;
        unsigned column = 0;
        bool operator==(const Cell&) const = default;
    };
    // Where a cell lies, in mm from the pad's top-left corner.
    struct CellMm {
        double left = 0.0;
        double top = 0.0;
        double width = 0.0;
        double height = 0.0;
    };

    explicit CoverageMap(const rawkit::TouchLayout& layout);

    // A finger's contact reported at (x, y); positions beyond the range count at the edge.
    void add(std::int32_t x, std::int32_t y);
    Cell cellOf(std::int32_t x, std::int32_t y) const;

    unsigned columns() const { return m_columns; }
    unsigned rows() const { return m_rows; }
    unsigned totalCells() const { return m_columns * m_rows; }
    unsigned coveredCells() const { return m_covered; }
    bool covered(Cell cell) const { return m_cells[cell.row * m_columns + cell.column] != 0; }
    // Cells never covered, row by row from the top-left.
    std::vector<Cell> uncovered() const;
    // None when the pad's size is unknown.
    std::optional<CellMm> placeOf(Cell cell) const;
    // Width over height of the pad (of the cells' grid when its size is unknown), for a picture.
    double aspect() const;
    // Where a position lies across the pad, 0 to 1 from the left and from the top.
    PointMm relative(std::int32_t x, std::int32_t y) const;

private:
    rawkit::ValueRange m_x;
    rawkit::ValueRange m_y;
    std::optional<double> m_widthMm;
    std::optional<double> m_heightMm;
    unsigned m_columns;
    unsigned m_rows;
    std::vector<std::uint8_t> m_cells;
    unsigned m_covered = 0;
};

}  // namespace touchq
