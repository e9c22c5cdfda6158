#include "trend/reading/ReadoutTable.h"

#include "trend/curves/CurveStyle.h"
#include "trend/paint/TrendTheme.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace pellam {

namespace {

constexpr double kPadding = 8;
constexpr double kLongestName = 24; // in characters
constexpr double kMargin = 6;       // to the border of the area
constexpr double kClearance = 14;   // to the point that must not be hidden
constexpr int kCalm = 12;           // readings for which a column without text keeps its room

QPointF corner(int index, const QRectF& area, const QSizeF& size) {
    const bool right = index == 1 || index == 2;
    const bool bottom = index == 2 || index == 3;
    return {right ? area.right() - kMargin - size.width() : area.left() + kMargin,
            bottom ? area.bottom() - kMargin - size.height() : area.top() + kMargin};
}

} // namespace

void ReadoutTable::measure(const QFontMetricsF& metrics) {
    std::size_t columns = static_cast<std::size_t>(m_content.titles.size());
    for (const auto& row : m_content.rows)
        columns = std::max(columns, static_cast<std::size_t>(row.cells.size()));
    if (m_widths.size() != columns || m_widthsRows != m_content.rows.size())
        m_widths.assign(columns, 0);
    m_widthsRows = m_content.rows.size();
    const auto widen = [&](const QStringList& cells) {
        for (qsizetype i = 0; i < cells.size(); ++i) {
            double& width = m_widths[static_cast<std::size_t>(i)];
            width = std::max(width, std::ceil(metrics.horizontalAdvance(cells[i])));
        }
    };
    widen(m_content.titles);
    for (const auto& row : m_content.rows)
        widen(row.cells);
    releaseEmptyColumn();
    if (!m_widths.empty()) {
        // Only names and units are cut, and here: each is drawn at every move of the pointer.
        cut(0, metrics);
        cut(m_content.firstText, metrics);
    }
    m_linesWidth = 0;
    for (const QString& line : m_content.lines)
        m_linesWidth = std::max(m_linesWidth, std::ceil(metrics.horizontalAdvance(line)));
}

void ReadoutTable::cut(qsizetype column, const QFontMetricsF& metrics) {
    if (column >= static_cast<qsizetype>(m_widths.size())) return;
    double& width = m_widths[static_cast<std::size_t>(column)];
    width = std::min(width, std::ceil(kLongestName * metrics.averageCharWidth()));
    for (auto& row : m_content.rows)
        row.cells[column] = metrics.elidedText(row.cells[column], Qt::ElideMiddle, width);
}

// Not at once: where it comes and goes from sample to sample, the box would flicker.
void ReadoutTable::releaseEmptyColumn() {
    const bool used =
        std::any_of(m_content.rows.begin(), m_content.rows.end(),
                    [](const ReadoutContent::Row& row) { return !row.cells.last().isEmpty(); });
    m_emptyFor = used ? 0 : m_emptyFor + 1;
    if (m_emptyFor > kCalm && !m_widths.empty()) m_widths.back() = 0;
}

double ReadoutTable::blockWidth() const {
    double width = m_content.rows.empty() ? 0.0 : m_lineHeight;
    for (const double column : m_widths)
        width += column > 0 ? column + m_gap : 0.0;
    return width;
}

void ReadoutTable::wrap(const QSizeF& room) {
    const std::size_t rows = m_content.rows.size();
    const double head =
        static_cast<double>(m_content.lines.size()) + (m_content.titles.isEmpty() ? 0.0 : 1.0);
    const double high = std::floor((room.height() - 2 * kPadding) / m_lineHeight - head);
    m_perBlock = static_cast<std::size_t>(std::max(1.0, high));
    const double wide = std::floor((room.width() - 2 * kPadding) / std::max(1.0, blockWidth()));
    const std::size_t places = m_perBlock * static_cast<std::size_t>(std::max(1.0, wide));
    // The last place says how many are left out.
    m_shown = rows <= places ? rows : places - 1;
    if (rows == 0 || rows > places) return;
    const std::size_t blocks = (rows + m_perBlock - 1) / m_perBlock;
    m_perBlock = (rows + blocks - 1) / blocks;
}

QSizeF ReadoutTable::size() const {
    const std::size_t places = m_content.rows.size() > m_shown ? m_shown + 1 : m_shown;
    const std::size_t blocks = std::max<std::size_t>(1, (places + m_perBlock - 1) / m_perBlock);
    const double table = blockWidth() * static_cast<double>(blocks);
    const auto lines = static_cast<std::size_t>(m_content.lines.size()) +
                       (m_content.titles.isEmpty() ? 0u : 1u) + std::min(places, m_perBlock);
    return {std::max(table, m_linesWidth) + 2 * kPadding,
            static_cast<double>(lines) * m_lineHeight + 2 * kPadding};
}

bool ReadoutTable::place(const QRectF& area, const Avoid& avoid) {
    const QSizeF needed = size();
    for (const bool clearOfAll : {true, false}) {
        for (int tried = 0; tried < 4; ++tried) {
            const int index = (m_corner + tried) % 4;
            m_rect = QRectF(corner(index, area, needed), needed);
            const QRectF guarded =
                m_rect.adjusted(-kClearance, -kClearance, kClearance, kClearance);
            if (avoid.point && guarded.contains(*avoid.point)) continue;
            if (clearOfAll && guarded.intersects(avoid.rect)) continue;
            m_corner = index;
            return true;
        }
    }
    m_rect = QRectF();
    return false;
}

bool ReadoutTable::arrange(const ReadoutContent& content, const QFont& font, const QRectF& area,
                           const Avoid& avoid) {
    m_content = content;
    m_font = font;
    m_rect = QRectF();
    if (content.empty()) {
        m_widths.clear();
        return true;
    }
    const QFontMetricsF metrics(font);
    m_lineHeight = std::ceil(metrics.height() * 1.15);
    m_gap = std::ceil(metrics.averageCharWidth() * 1.6);
    measure(metrics);
    const QSizeF room(area.width() - 2 * kMargin, area.height() - 2 * kMargin);
    wrap(room);
    const bool fits = size().width() <= room.width() && size().height() <= room.height();
    if (fits && place(area, avoid)) return true;
    if (!avoid.point) return false;
    // No corner is clear of the point: take no more than the larger part beside or above it.
    m_rect = QRectF();
    const QPointF& point = *avoid.point;
    const double beside = std::max(point.x() - area.left(), area.right() - point.x());
    const double above = std::max(point.y() - area.top(), area.bottom() - point.y());
    const QSizeF parts[] = {{beside - kMargin - kClearance, room.height()},
                            {room.width(), above - kMargin - kClearance}};
    for (const QSizeF& part : parts) {
        wrap(part);
        if (size().width() > part.width() || size().height() > part.height()) continue;
        if (place(area, avoid)) return true;
    }
    return false;
}

// A piece of the curve's line, as in the legend.
void ReadoutTable::paintMark(QPainter& painter, const QPointF& at, const ReadoutContent::Row& row,
                             const TrendTheme& theme) const {
    if (!row.colour.isValid()) return;
    const double length = std::round(m_lineHeight * 0.7);
    QPen pen(colourOnScreen(row.colour, theme.background), 3, Qt::SolidLine, Qt::FlatCap);
    QList<qreal> dashes = dashPattern(row.dash);
    for (qreal& part : dashes) // each pattern is told by its first seven units
        part *= length / 7 / pen.widthF();
    if (!dashes.isEmpty()) pen.setDashPattern(dashes);
    painter.setPen(pen);
    const double y = at.y() + std::round(m_lineHeight / 2) + 0.5;
    painter.drawLine(QPointF(at.x(), y), QPointF(at.x() + length, y));
    painter.setPen(theme.text);
}

void ReadoutTable::paintRow(QPainter& painter, const QPointF& at, const QStringList& cells) const {
    double x = at.x() + m_lineHeight;
    for (qsizetype i = 0; i < cells.size(); ++i) {
        const double width = m_widths[static_cast<std::size_t>(i)];
        if (width <= 0) continue;
        const bool left = i == 0 || i >= m_content.firstText;
        painter.drawText(
            QRectF(x, at.y(), width + 1, m_lineHeight),
            static_cast<int>(Qt::AlignVCenter | (left ? Qt::AlignLeft : Qt::AlignRight)), cells[i]);
        x += width + m_gap;
    }
}

void ReadoutTable::paint(QPainter& painter, const TrendTheme& theme) const {
    if (m_rect.isEmpty()) return;
    painter.save();
    painter.fillRect(m_rect, theme.background);
    painter.setPen(QPen(theme.faintText, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(m_rect.adjusted(0.5, 0.5, -0.5, -0.5));
    painter.setFont(m_font);
    painter.setPen(theme.text);
    QPointF at = m_rect.topLeft() + QPointF(kPadding, kPadding);
    for (const QString& line : m_content.lines) {
        painter.drawText(QRectF(at, QSizeF(m_rect.width(), m_lineHeight)), Qt::AlignVCenter, line);
        at.ry() += m_lineHeight;
    }
    const double block = blockWidth();
    const std::size_t places = m_content.rows.size() > m_shown ? m_shown + 1 : m_shown;
    for (std::size_t row = 0; row < places; ++row) {
        const auto column = static_cast<double>(row / m_perBlock);
        const auto line = static_cast<double>(row % m_perBlock);
        const double titleLine = m_content.titles.isEmpty() ? 0.0 : m_lineHeight;
        const QPointF cell = at + QPointF(column * block, titleLine + line * m_lineHeight);
        if (line == 0 && titleLine > 0) {
            painter.setPen(theme.faintText);
            paintRow(painter, at + QPointF(column * block, 0), m_content.titles);
        }
        painter.setPen(theme.text);
        if (row < m_shown) {
            const ReadoutContent::Row& shown = m_content.rows[row];
            paintMark(painter, cell, shown, theme);
            paintRow(painter, cell, shown.cells);
        } else {
            const auto more = static_cast<int>(m_content.rows.size() - m_shown);
            painter.drawText(
                QRectF(cell, QSizeF(block, m_lineHeight)), Qt::AlignVCenter,
                QCoreApplication::translate("pellam::ReadoutTable", "and %n more", "", more));
        }
    }
    painter.restore();
}

} // namespace pellam
