#include "app/layout/LayoutDialog.h"

#include "app/layout/LayoutFields.h"
#include "app/layout/LayoutMemory.h"
#include "app/layout/SampleLinesView.h"
#include "app/layout/TablePreviewModel.h"
#include "delimited/layout/LayoutText.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace pellam {

namespace {

constexpr int kFittedColumns = 60; ///< columns behind these keep a width of their own
constexpr int kWidestColumn = 220;
constexpr int kFittedRows = 20;

std::int64_t linesIn(std::string_view text) {
    std::int64_t lines = 0;
    for (; !text.empty(); ++lines)
        (void)takeLine(text);
    return lines;
}

QWidget* titled(const QString& title, QWidget* view, QWidget* below = nullptr) {
    auto* box = new QWidget;
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    auto* label = new QLabel(title);
    label->setBuddy(view);
    column->addWidget(label);
    column->addWidget(view, 1);
    if (below) column->addWidget(below);
    return box;
}

} // namespace

LayoutDialog::LayoutDialog(LayoutPreview& preview, const QString& fileName,
                           const LayoutWishes& wishes, QWidget* parent)
    : QDialog(parent),
      m_preview(preview),
      m_lines(new SampleLinesView),
      m_table(new QTableView),
      m_model(new TablePreviewModel(preview.table(), this)),
      m_summary(new QLabel),
      m_memory(new QLabel),
      m_buttons(new QDialogButtonBox) {
    setWindowTitle(tr("Text Layout"));
    m_preview.follow({});
    m_fields = new LayoutFields(m_preview.layout(), linesIn(m_preview.sample().head));
    auto* name = new QLabel(fileName);
    name->setTextFormat(Qt::PlainText);
    name->setMinimumWidth(1);
    for (QLabel* label : {m_summary, m_memory}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    makeButtons();

    auto* left = new QVBoxLayout;
    left->addWidget(m_fields);
    left->addStretch(1);
    auto* row = new QHBoxLayout;
    row->setSpacing(16);
    row->addLayout(left);
    row->addWidget(makeViews(), 1);
    auto* column = new QVBoxLayout(this);
    column->addWidget(name);
    column->addLayout(row, 1);
    column->addWidget(m_summary);
    column->addWidget(m_memory);
    column->addWidget(m_buttons);

    connect(m_fields, &LayoutFields::changed, this, &LayoutDialog::follow);
    m_fields->setWishes(wishes);
    // Once the view has its size.
    QTimer::singleShot(0, m_lines, [this] { m_lines->showLine(m_preview.layout().headingsLine); });
    const QSize room = screen()->availableSize();
    resize(QSize(1000, 700).boundedTo(room - QSize(20, 60)));
}

const LayoutWishes& LayoutDialog::wishes() const {
    return m_fields->wishes();
}

QWidget* LayoutDialog::makeLegend() const {
    auto* legend = new QWidget;
    auto* grid = new QGridLayout(legend);
    grid->setContentsMargins(0, 2, 0, 0);
    grid->setHorizontalSpacing(6);
    int place = 0;
    for (const LineRole role : {LineRole::Description, LineRole::Headings, LineRole::Units,
                                LineRole::Data, LineRole::Time}) {
        auto* name = new QLabel(roleName(role));
        name->setFrameShape(QFrame::StyledPanel);
        name->setAutoFillBackground(true);
        name->setMargin(2);
        name->setAlignment(Qt::AlignCenter);
        QPalette colours = palette();
        colours.setColor(QPalette::Window, roleTint(role, palette()));
        colours.setColor(QPalette::WindowText, palette().color(QPalette::Text));
        name->setPalette(colours);
        grid->addWidget(name, 0, place++);
    }
    return legend;
}

QWidget* LayoutDialog::makeViews() {
    m_table->setModel(m_model);
    m_table->setAccessibleName(tr("Resulting table"));
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(false);
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(m_lines, &SampleLinesView::roleWanted, this, [this](qint64 line, LineRole role) {
        LayoutWishes wishes = m_fields->wishes();
        if (role == LineRole::Headings) wishes.headingsLine = line;
        if (role == LineRole::Units) wishes.unitsLine = line;
        if (role == LineRole::Data) wishes.dataLine = line;
        m_fields->setWishes(wishes);
    });
    auto* views = new QSplitter(Qt::Vertical);
    views->setChildrenCollapsible(false);
    views->addWidget(titled(tr("&File as it stands:"), m_lines, makeLegend()));
    views->addWidget(titled(tr("T&able that comes of it:"), m_table));
    return views;
}

void LayoutDialog::makeButtons() {
    m_buttons->setStandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto* reset = m_buttons->addButton(tr("&Reset to Detected"), QDialogButtonBox::ResetRole);
    reset->setAutoDefault(false);
    connect(reset, &QPushButton::clicked, this, [this] { m_fields->setWishes({}); });
    connect(m_buttons, &QDialogButtonBox::accepted, this, &LayoutDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &LayoutDialog::reject);
}

void LayoutDialog::follow() {
    m_preview.follow(m_fields->wishes());
    const TextLayout& layout = m_preview.layout();
    m_fields->showLayout(layout);
    m_lines->setLines(sampleLines(m_preview.sample(), layout));
    showTable();
    m_fields->showTime(firstTimeInFile(), QString::fromStdString(m_preview.firstTime()));
    m_summary->setText(verdict());
    const bool wished = wishes().any();
    m_memory->setText(!wished ? tr("All as detected.")
                      : LayoutMemory::canRemember(m_preview.sample(), layout)
                          ? tr("Remembered for files with the same headings.")
                          : tr("Without headings it is not remembered for other files."));
    for (auto* button : m_buttons->buttons()) {
        const auto role = m_buttons->buttonRole(button);
        if (role == QDialogButtonBox::ResetRole) button->setEnabled(wished);
        if (role == QDialogButtonBox::AcceptRole)
            button->setEnabled(m_fields->isValid() && layout.notATable.empty());
    }
}

QString LayoutDialog::verdict() const {
    const TextLayout& layout = m_preview.layout();
    if (!layout.notATable.empty())
        return tr("This looks like %1, not like a table of measurements.")
            .arg(QString::fromStdString(layout.notATable));
    const std::string summary = layoutSummary(layout);
    return summary.empty() ? tr("Headings first, time in the first column.")
                           : QString::fromStdString(summary) + u'.';
}

// The fields of the first row that are its time, as they stand.
QString LayoutDialog::firstTimeInFile() const {
    const auto first = static_cast<std::size_t>(m_preview.layout().firstDataLine);
    const auto& lines = m_lines->lines().lines();
    if (first < 1 || first > lines.size()) return {};
    QStringList texts;
    for (const SampleLine::Span& span : lines[first - 1].times)
        texts += lines[first - 1].text.mid(span.start, span.length);
    return texts.join(u' ').left(60);
}

void LayoutDialog::showTable() {
    m_model->refresh();
    fitColumns();
}

void LayoutDialog::fitColumns() {
    const QFontMetrics metrics(m_table->font());
    for (int column = 0; column < std::min(m_model->columnCount(), kFittedColumns); ++column) {
        const auto widthOf = [&metrics](const QVariant& text) {
            return metrics.horizontalAdvance(text.toString().left(60));
        };
        int width = widthOf(m_model->headerData(column, Qt::Horizontal, Qt::DisplayRole)) + 4;
        for (int row = 0; row < std::min(m_model->rowCount(), kFittedRows); ++row)
            width = std::max(width, widthOf(m_model->index(row, column).data()));
        m_table->setColumnWidth(column, std::min(width + 14, kWidestColumn));
    }
}

} // namespace pellam
