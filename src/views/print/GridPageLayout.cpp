#include "views/print/GridPageLayout.h"

#include "views/text/SampledWidth.h"

#include <QFontDatabase>
#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace pellam {

namespace {
constexpr double kPadding = 40; // left and right of a text, together
constexpr double kWidestColumn = 2000;
constexpr double kNarrowestColumn = 300;
} // namespace

GridPageLayout::GridPageLayout(const GridData& grid) : m_grid(grid) {
    // Pixel sizes make the fonts the same on every device: one pixel is one unit here.
    m_font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    m_font.setPixelSize(80);
    m_headingFont = m_font;
    m_headingFont.setBold(true);
    const QFontMetricsF metrics(m_font);
    m_rowHeight = std::ceil(metrics.height() * 1.25);
    m_headingHeight = std::ceil(QFontMetricsF(m_headingFont).height() * 2.0 + kPadding);
    m_footerHeight = std::ceil(metrics.height() * 2.0);
}

GridRow GridPageLayout::gridRows() const {
    return m_grid.rowCount() > 0 ? m_grid.rowCount() + 1 : 0;
}

void GridPageLayout::setPageSize(QSizeF points) {
    m_size = points * kUnitsPerPoint;
    measureColumns();
    splitIntoBands();
    const double room = m_size.height() - m_headingHeight - m_footerHeight;
    m_rowsPerPage = std::max<GridRow>(1, static_cast<GridRow>(room / m_rowHeight));
}

void GridPageLayout::measureColumns() {
    const QFontMetricsF metrics(m_font);
    const QFontMetricsF headingMetrics(m_headingFont);
    m_rowNumberWidth =
        kPadding + std::max(metrics.horizontalAdvance(QStringLiteral("Axis")),
                            metrics.horizontalAdvance(QString::number(m_grid.rowCount())));
    const double widest = std::min(kWidestColumn, m_size.width() - m_rowNumberWidth);
    m_widths.clear();
    const int last = std::min(m_grid.channelCount(), m_grid.columnCount() - 1);
    for (int column = 0; column <= last; ++column) {
        const double text = std::max(sampledTextWidth(m_grid, column, metrics),
                                     headingTextWidth(m_grid, column, headingMetrics));
        m_widths.push_back(std::max(kNarrowestColumn, std::min(widest, text + kPadding)));
    }
}

void GridPageLayout::splitIntoBands() {
    m_bandStarts.assign(1, 0);
    const double room = m_size.width() - m_rowNumberWidth;
    double used = 0;
    for (std::size_t column = 0; column < m_widths.size(); ++column) {
        if (used > 0 && used + m_widths[column] > room) {
            m_bandStarts.push_back(static_cast<int>(column));
            used = 0;
        }
        used += m_widths[column];
    }
    m_bandStarts.push_back(static_cast<int>(m_widths.size()));
}

int GridPageLayout::pageCount() const {
    if (m_bandStarts.size() < 2 || gridRows() == 0) return 0;
    const GridRow rowPages = (gridRows() + m_rowsPerPage - 1) / m_rowsPerPage;
    return static_cast<int>(rowPages) * static_cast<int>(m_bandStarts.size() - 1);
}

GridPageLayout::Page GridPageLayout::page(int index) const {
    const GridRow rowPages = (gridRows() + m_rowsPerPage - 1) / m_rowsPerPage;
    const auto band = static_cast<std::size_t>(index / rowPages);
    Page page;
    page.firstColumn = m_bandStarts[band];
    page.lastColumn = m_bandStarts[band + 1] - 1;
    page.firstRow = index % rowPages * m_rowsPerPage;
    page.lastRow = std::min(page.firstRow + m_rowsPerPage, gridRows()) - 1;
    return page;
}

double GridPageLayout::columnWidth(int column) const {
    return m_widths[static_cast<std::size_t>(column)];
}

} // namespace pellam
