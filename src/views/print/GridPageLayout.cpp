#include "views/print/GridPageLayout.h"

#include "views/text/HeadingText.h"

#include <QFontDatabase>
#include <QFontMetricsF>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace pellam {

namespace {
constexpr double kPadding = 40;      // left and right of a text, together
constexpr double kWidestText = 2000; // while other columns need the page
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
    chooseWidths();
    splitIntoBands();
    const double room = m_size.height() - m_headingHeight - m_footerHeight;
    m_rowsPerPage = std::max<GridRow>(1, static_cast<GridRow>(room / m_rowHeight));
}

void GridPageLayout::measureColumns() {
    if (!m_needs.empty()) return;
    const CellWidths widths{QFontMetricsF(m_font)};
    const QFontMetricsF headingMetrics(m_headingFont);
    const QFontMetricsF metrics(m_font);
    m_rowNumberWidth =
        kPadding + std::max(metrics.horizontalAdvance(QStringLiteral("Axis")),
                            metrics.horizontalAdvance(QString::number(m_grid.rowCount())));
    const int last = std::min(m_grid.channelCount(), m_grid.columnCount() - 1);
    for (int column = 0; column <= last; ++column) {
        const Column& data = m_grid.column(column);
        CellWidths::Widest widest;
        widths.look(data, 0, m_grid.rowCount(), 1, widest);
        widest.text = std::max(widest.text, HeadingText(data.label()).width(headingMetrics));
        m_needs.push_back(widest);
    }
}

void GridPageLayout::chooseWidths() {
    const double room = m_size.width() - m_rowNumberWidth;
    m_widths.clear();
    for (const CellWidths::Widest& need : m_needs) {
        const double text = std::min(need.text + kPadding, kWidestText);
        m_widths.push_back(
            std::max(kNarrowestColumn, std::min(room, std::max(need.number + kPadding, text))));
    }
}

void GridPageLayout::splitIntoBands() {
    m_bandStarts.assign(1, 0);
    const double room = m_size.width() - m_rowNumberWidth;
    double used = 0;
    for (std::size_t column = 0; column < m_widths.size(); ++column) {
        if (used > 0 && used + m_widths[column] > room) {
            widenTexts(column, room - used);
            m_bandStarts.push_back(static_cast<int>(column));
            used = 0;
        }
        used += m_widths[column];
    }
    widenTexts(m_widths.size(), room - used);
    m_bandStarts.push_back(static_cast<int>(m_widths.size()));
}

void GridPageLayout::widenTexts(std::size_t end, double spare) {
    for (auto column = static_cast<std::size_t>(m_bandStarts.back()); column < end; ++column) {
        const double more = std::min(spare, m_needs[column].text + kPadding - m_widths[column]);
        if (more <= 0) continue;
        m_widths[column] += more;
        spare -= more;
    }
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
