#include "views/chart/CChartAxis.h"

#include "grid/DecimalText.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include <cmath>

namespace pellam {

namespace {

enum Column { kNumber, kTitle, kLogarithmic, kMinimum, kMaximum };

} // namespace

CChartAxis::CChartAxis(char decimalSeparator, QWidget* parent)
    : QWidget(parent),
      m_error(new QLabel),
      m_separator(decimalSeparator) {
    auto* box = new QVBoxLayout(this);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    addHeadings(grid);
    for (int axis = 1; axis <= kAxes; ++axis)
        addRow(grid, axis);
    setFocusProxy(m_rows.front().title);
    grid->setColumnStretch(kTitle, 2);
    grid->setColumnStretch(kMinimum, 1);
    grid->setColumnStretch(kMaximum, 1);
    box->addLayout(grid);
    m_error->setObjectName(QStringLiteral("AxisError"));
    m_error->setWordWrap(true);
    m_error->setMinimumHeight(2 * fontMetrics().lineSpacing());
    m_error->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    box->addWidget(m_error);
    box->addStretch(1);
}

void CChartAxis::addHeadings(QGridLayout* grid) {
    grid->addWidget(new QLabel(tr("Axis")), 0, kNumber);
    grid->addWidget(new QLabel(tr("Title")), 0, kTitle);
    grid->addWidget(new QLabel(tr("Logarithmic")), 0, kLogarithmic);
    grid->addWidget(new QLabel(tr("Minimum")), 0, kMinimum);
    grid->addWidget(new QLabel(tr("Maximum")), 0, kMaximum);
}

void CChartAxis::addRow(QGridLayout* grid, int axis) {
    Row& row = m_rows[static_cast<std::size_t>(axis - 1)];
    row.title = new QLineEdit;
    row.title->setAccessibleName(tr("Title of axis %1").arg(axis));
    row.title->setObjectName(QStringLiteral("Title%1").arg(axis));
    row.title->setMinimumWidth(fontMetrics().averageCharWidth() * 24);
    auto* label = new QLabel(QStringLiteral("&%1").arg(axis));
    label->setBuddy(row.title);
    grid->addWidget(label, axis, kNumber);
    grid->addWidget(row.title, axis, kTitle);
    row.logarithmic = new QCheckBox;
    row.logarithmic->setAccessibleName(tr("Axis %1 logarithmic").arg(axis));
    row.logarithmic->setObjectName(QStringLiteral("Logarithmic%1").arg(axis));
    grid->addWidget(row.logarithmic, axis, kLogarithmic, Qt::AlignCenter);
    row.minimum = addNumber(grid, axis, kMinimum, QStringLiteral("Minimum%1"));
    row.minimum->setAccessibleName(tr("Minimum of axis %1").arg(axis));
    row.maximum = addNumber(grid, axis, kMaximum, QStringLiteral("Maximum%1"));
    row.maximum->setAccessibleName(tr("Maximum of axis %1").arg(axis));
    connect(row.logarithmic, &QCheckBox::toggled, this,
            [this, &row](bool on) { setLogarithmic(row, on); });
    connect(row.maximum, &QLineEdit::textChanged, this, [this, &row] {
        if (row.logarithmic->isChecked()) showLogarithmicMinimum(row);
    });
}

QLineEdit* CChartAxis::addNumber(QGridLayout* grid, int axis, int column, const QString& name) {
    auto* field = new QLineEdit;
    field->setObjectName(name.arg(axis));
    field->setMinimumWidth(fontMetrics().averageCharWidth() * 16);
    field->setAlignment(Qt::AlignRight);
    connect(field, &QLineEdit::textEdited, m_error, &QLabel::clear);
    grid->addWidget(field, axis, column);
    return field;
}

void CChartAxis::setAxis(int axis, const Axis& values, bool used) {
    Row& row = m_rows[static_cast<std::size_t>(axis - 1)];
    row.given = values;
    const BoundTexts texts = boundTexts(values.minimum, values.maximum, values.logarithmic != 0);
    row.texts = {written(texts.min), written(texts.max)};
    row.title->setText(values.title);
    row.title->setPlaceholderText(used ? QString() : tr("not in use"));
    row.minimum->setText(row.texts.min);
    row.maximum->setText(row.texts.max);
    row.minimum->setCursorPosition(0);
    row.maximum->setCursorPosition(0);
    row.typed = row.texts.min;
    row.logarithmic->setChecked(values.logarithmic != 0);
}

void CChartAxis::setLogarithmic(Row& row, bool on) {
    row.minimum->setEnabled(!on);
    if (on) {
        row.typed = row.minimum->text();
        showLogarithmicMinimum(row);
    } else {
        row.minimum->setText(row.typed);
    }
}

// An axis that is taken over as logarithmic starts at 1; one that is left as it was does not move.
void CChartAxis::showLogarithmicMinimum(const Row& row) {
    const bool kept = row.given.logarithmic != 0 && row.maximum->text() == row.texts.max;
    row.minimum->setText(kept ? row.texts.min : QStringLiteral("1"));
}

QString CChartAxis::written(const QString& number) const {
    return QString(number).replace(u'.', QLatin1Char(m_separator));
}

std::optional<double> CChartAxis::number(const QString& text) const {
    const auto value = parseDecimal(text.toStdString(), m_separator);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

// What was not touched stays as it is, with the digits that are not written.
std::optional<double> CChartAxis::minimum(const Row& row) const {
    const QString text = row.minimum->text();
    return text == row.texts.min ? row.given.minimum : number(text);
}

std::optional<double> CChartAxis::maximum(const Row& row) const {
    const QString text = row.maximum->text();
    return text == row.texts.max ? row.given.maximum : number(text);
}

const CChartAxis::Axis& CChartAxis::given(int axis) const {
    return m_rows[static_cast<std::size_t>(axis - 1)].given;
}

std::optional<CChartAxis::Axis> CChartAxis::axis(int axis) const {
    const Row& row = m_rows[static_cast<std::size_t>(axis - 1)];
    const auto min = minimum(row);
    const auto max = maximum(row);
    if (!min || !max) return {};
    return Axis{row.title->text(), row.logarithmic->isChecked() ? 1 : 0, *min, *max};
}

QString CChartAxis::error() const {
    return m_error->text();
}

bool CChartAxis::refuse(QLineEdit* field, const QString& why) {
    m_error->setText(why);
    field->setFocus();
    field->selectAll();
    return false;
}

bool CChartAxis::validateRow(int axis) {
    const Row& row = m_rows[static_cast<std::size_t>(axis - 1)];
    const auto min = minimum(row);
    const auto max = maximum(row);
    const QString example = written(QStringLiteral("12.5"));
    if (!min) {
        return refuse(row.minimum, tr("Attention: The minimum of axis %1 is not a number. Type a "
                                      "number such as %2.")
                                       .arg(axis)
                                       .arg(example));
    }
    if (!max) {
        return refuse(row.maximum, tr("Attention: The maximum of axis %1 is not a number. Type a "
                                      "number such as %2.")
                                       .arg(axis)
                                       .arg(example));
    }
    // Axes that nothing is drawn against have their bounds the other way round until they are used.
    const bool touched = *min != row.given.minimum || *max != row.given.maximum;
    if (touched && !row.logarithmic->isChecked() && *min >= *max) {
        return refuse(row.maximum,
                      tr("Attention: The maximum of axis %1 must be above its minimum.").arg(axis));
    }
    return true;
}

bool CChartAxis::validate() {
    m_error->clear();
    for (int axis = 1; axis <= kAxes; ++axis) {
        if (!validateRow(axis)) return false;
    }
    return true;
}

} // namespace pellam
