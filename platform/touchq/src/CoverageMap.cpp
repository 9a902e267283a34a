#include "touchq/CoverageMap.h"

#include <algorithm>
#include <cmath>

namespace touchq {

namespace {

unsigned cellsAlong(const std::optional<double>& mm, const std::optional<double>& otherMm, unsigned unknown)
{
    if (!mm || !otherMm || !(*mm > 0.0) || !(*otherMm > 0.0)) {
        return unknown;
    }
    const double cells = std::round(*mm / CoverageMap::kCellMm);
    return static_cast<unsigned>(std::clamp(cells, 1.0, static_cast<double>(CoverageMap::kMostCells)));
}

double fractionOf(std::int32_t value, const rawkit::ValueRange& range)
{
    const double span = static_cast<double>(range.high) - range.low;
    return span <= 0.0 ? 0.0 : std::clamp((static_cast<double>(value) - range.low) / span, 0.0, 1.0);
}

// The cell of a value within the range's span of `cells` equal parts.
unsigned partOf(std::int32_t value, const rawkit::ValueRange& range, unsigned cells)
{
    const std::int64_t span = static_cast<std::int64_t>(range.high) - range.low + 1;
    if (span <= 1) {
        return 0;
    }
    const std::int64_t offset = std::clamp<std::int64_t>(static_cast<std::int64_t>(value) - range.low, 0, span - 1);
    return static_cast<unsigned>(offset * cells / span);
}

}  // namespace

CoverageMap::CoverageMap(const rawkit::TouchLayout& layout)
    : m_x(layout.x),
      m_y(layout.y),
      m_widthMm(layout.widthMm),
      m_heightMm(layout.heightMm),
      m_columns(cellsAlong(layout.widthMm, layout.heightMm, kColumnsUnknown)),
      m_rows(cellsAlong(layout.heightMm, layout.widthMm, kRowsUnknown)),
      m_cells(static_cast<std::size_t>(m_columns) * m_rows, 0)
{
}

CoverageMap::Cell CoverageMap::cellOf(std::int32_t x, std::int32_t y) const
{
    return Cell{partOf(y, m_y, m_rows), partOf(x, m_x, m_columns)};
}

void CoverageMap::add(std::int32_t x, std::int32_t y)
{
    const Cell cell = cellOf(x, y);
    std::uint8_t& mark = m_cells[cell.row * m_columns + cell.column];
    if (mark == 0) {
        mark = 1;
        ++m_covered;
    }
}

std::vector<CoverageMap::Cell> CoverageMap::uncovered() const
{
    std::vector<Cell> cells;
    for (unsigned row = 0; row < m_rows; ++row) {
        for (unsigned column = 0; column < m_columns; ++column) {
            if (!covered(Cell{row, column})) {
                cells.push_back(Cell{row, column});
            }
        }
    }
    return cells;
}

std::optional<CoverageMap::CellMm> CoverageMap::placeOf(Cell cell) const
{
    if (!m_widthMm || !m_heightMm || !(*m_widthMm > 0.0) || !(*m_heightMm > 0.0)) {
        return std::nullopt;
    }
    const double width = *m_widthMm / m_columns;
    const double height = *m_heightMm / m_rows;
    return CellMm{cell.column * width, cell.row * height, width, height};
}

double CoverageMap::aspect() const
{
    if (placeOf(Cell{})) {
        return *m_widthMm / *m_heightMm;
    }
    return static_cast<double>(m_columns) / m_rows;
}

PointMm CoverageMap::relative(std::int32_t x, std::int32_t y) const
{
    return PointMm{fractionOf(x, m_x), fractionOf(y, m_y)};
}

}  // namespace touchq
