#include "app/layout/SampleLinesView.h"

#include <QAction>
#include <QFontDatabase>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTextLayout>

#include <algorithm>

namespace pellam {

namespace {

constexpr int kMargin = 4;
constexpr int kTabCharacters = 8;

/// Draws a line on the tint of its role, and the fields of the time on theirs.
class LineDelegate : public QStyledItemDelegate {
  public:
    LineDelegate(const SampleLinesModel& model, QObject* parent)
        : QStyledItemDelegate(parent),
          m_model(model) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const SampleLine& line = m_model.lines()[static_cast<std::size_t>(index.row())];
        painter->fillRect(option.rect, roleTint(line.role, option.palette));
        QTextLayout text(line.text, option.font);
        QTextOption wrap;
        wrap.setWrapMode(QTextOption::NoWrap);
        const QFontMetricsF metrics(option.font);
        wrap.setTabStopDistance(kTabCharacters * metrics.horizontalAdvance(u'0'));
        text.setTextOption(wrap);
        text.beginLayout();
        text.createLine();
        text.endLayout();
        QList<QTextLayout::FormatRange> ranges;
        for (const SampleLine::Span& span : line.times) {
            QTextLayout::FormatRange range{span.start, span.length, {}};
            range.format.setBackground(roleTint(LineRole::Time, option.palette));
            ranges += range;
        }
        painter->save();
        painter->setClipRect(option.rect);
        painter->setPen(option.palette.color(QPalette::Text));
        const double top = (option.rect.height() - metrics.height()) / 2;
        text.draw(painter, QPointF(option.rect.left() + kMargin, option.rect.top() + top), ranges);
        if (option.state & (QStyle::State_HasFocus | QStyle::State_Selected)) {
            painter->setPen(QPen(option.palette.color(QPalette::Highlight), 1));
            painter->setBrush(Qt::NoBrush);
            painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
        }
        painter->restore();
    }

  private:
    const SampleLinesModel& m_model;
};

} // namespace

void SampleLinesModel::setLines(std::vector<SampleLine> lines) {
    const bool same = lines.size() == m_lines.size();
    if (!same) beginResetModel();
    m_lines = std::move(lines);
    if (!same) return endResetModel();
    if (!m_lines.empty()) Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, 0));
}

int SampleLinesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

int SampleLinesModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 1;
}

QVariant SampleLinesModel::data(const QModelIndex& index, int role) const {
    const SampleLine& line = m_lines[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole) return line.text;
    if (role != Qt::AccessibleTextRole) return {};
    const QString name = roleName(line.role);
    return name.isEmpty() ? line.text : name + QStringLiteral(": ") + line.text;
}

QVariant SampleLinesModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical && role == Qt::DisplayRole) return section + 1;
    if (orientation == Qt::Vertical && role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

SampleLinesView::SampleLinesView(QWidget* parent)
    : QTableView(parent),
      m_model(new SampleLinesModel(this)) {
    setModel(m_model);
    setItemDelegate(new LineDelegate(*m_model, this));
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setAccessibleName(tr("Lines of the file"));
    setSelectionMode(SingleSelection);
    setHorizontalScrollMode(ScrollPerPixel);
    setShowGrid(false);
    setTabKeyNavigation(false);
    setWordWrap(false);
    horizontalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 2);
    verticalHeader()->setMinimumSectionSize(fontMetrics().height() + 2);
    verticalHeader()->setSectionsClickable(false);
    verticalHeader()->setHighlightSections(false);
    addRoleAction(tr("&Headings Start Here"), LineRole::Headings);
    addRoleAction(tr("&Units Are Here"), LineRole::Units);
    addRoleAction(tr("&Data Starts Here"), LineRole::Data);
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

void SampleLinesView::addRoleAction(const QString& text, LineRole role) {
    auto* action = new QAction(text, this);
    connect(action, &QAction::triggered, this, [this, role] {
        if (currentIndex().isValid()) Q_EMIT roleWanted(currentIndex().row() + 1, role);
    });
    addAction(action);
}

void SampleLinesView::setLines(std::vector<SampleLine> lines) {
    qsizetype longest = 0;
    for (const SampleLine& line : lines)
        longest = std::max(longest, line.text.size() +
                                        line.text.count(u'\t') * qsizetype{kTabCharacters - 1});
    m_model->setLines(std::move(lines));
    const double width =
        static_cast<double>(longest) * QFontMetricsF(font()).horizontalAdvance(u'0');
    setColumnWidth(0, std::max(static_cast<int>(width) + 2 * kMargin, viewport()->width()));
    horizontalHeader()->setStretchLastSection(true);
}

void SampleLinesView::showLine(qint64 line) {
    const auto row = static_cast<int>(std::clamp<qint64>(line, 1, m_model->rowCount())) - 1;
    if (row >= 0) scrollTo(m_model->index(row, 0), PositionAtCenter);
    horizontalScrollBar()->setValue(0);
}

} // namespace pellam
