#pragma once

#include "grid/GridData.h"
#include "views/scan/CellArea.h"
#include "views/text/CellWidths.h"

#include <QFont>
#include <QSizeF>

#include <vector>

namespace pellam {

/// Which columns and rows of the grid stand on which page, and how large everything is. Lengths are
/// in tenths of a point, so that the layout is the same on every device.
class GridPageLayout {
  public:
    static constexpr double kUnitsPerPoint = 10.0;

    explicit GridPageLayout(const GridData& grid);

    /// Lays out for a printable area, in points. Columns are as wide as their widest number; wide
    /// texts get what the page has left. The first call looks at every cell.
    void setPageSize(QSizeF points);

    /// Pages there are; 0 when no row is loaded.
    [[nodiscard]] int pageCount() const;

    struct Page {
        int firstColumn = 0;
        int lastColumn = -1; ///< inclusive
        GridRow firstRow = 0;
        GridRow lastRow = -1; ///< inclusive
    };

    /// What stands on a page, counted from 0.
    [[nodiscard]] Page page(int index) const;

    [[nodiscard]] QSizeF size() const { return m_size; }

    [[nodiscard]] double columnWidth(int column) const;

    [[nodiscard]] double rowNumberWidth() const { return m_rowNumberWidth; }

    [[nodiscard]] double headingHeight() const { return m_headingHeight; }

    [[nodiscard]] double rowHeight() const { return m_rowHeight; }

    [[nodiscard]] double footerHeight() const { return m_footerHeight; }

    [[nodiscard]] const QFont& font() const { return m_font; }

    [[nodiscard]] const QFont& headingFont() const { return m_headingFont; }

  private:
    void measureColumns();
    void chooseWidths();
    void splitIntoBands();
    /// Gives the columns of the last band, up to `end`, what their texts lack of spare room.
    void widenTexts(std::size_t end, double spare);
    [[nodiscard]] GridRow gridRows() const;

    const GridData& m_grid;
    QFont m_font;
    QFont m_headingFont;
    QSizeF m_size;
    std::vector<CellWidths::Widest> m_needs; ///< by column; empty until measured
    std::vector<double> m_widths;
    std::vector<int> m_bandStarts; ///< first column of each band of columns, then the end
    double m_rowNumberWidth = 0;
    double m_headingHeight = 0;
    double m_rowHeight = 0;
    double m_footerHeight = 0;
    GridRow m_rowsPerPage = 1;
};

} // namespace pellam
