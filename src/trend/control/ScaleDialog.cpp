#include "trend/control/ScaleDialog.h"

#include "trend/reading/BoundText.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>
#include <optional>

namespace pellam {

namespace {

// Point and comma are both understood.
std::optional<double> number(const QLineEdit& edit) {
    bool valid = false;
    const QString text = edit.text().trimmed().replace(u',', u'.');
    const double value = text.toDouble(&valid);
    if (!valid || !std::isfinite(value)) return std::nullopt;
    return value;
}

} // namespace

ScaleDialog::ScaleDialog(int axis, const TrendState& state, QWidget* parent)
    : QDialog(parent),
      m_scale(state.scales[static_cast<std::size_t>(axis - 1)]),
      m_given(boundTexts(m_scale.actualMin, m_scale.actualMax, m_scale.logarithmic)),
      m_title(new QLineEdit(m_scale.text)),
      m_min(new QLineEdit),
      m_max(new QLineEdit),
      m_logarithmic(new QCheckBox(tr("&Logarithmic"))),
      m_fault(new QLabel),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel)) {
    setWindowTitle(tr("Y Axis %1").arg(axis));
    m_given = {state.numbers(m_given.min), state.numbers(m_given.max)};
    m_min->setText(m_given.min);
    m_max->setText(m_given.max);
    m_logarithmic->setChecked(m_scale.logarithmic);
    m_logarithmic->setEnabled(m_scale.dialogLogarithmic);
    m_fault->setWordWrap(true);
    auto* form = new QFormLayout;
    form->addRow(tr("&Title:"), m_title);
    form->addRow(tr("M&aximum:"), m_max);
    form->addRow(tr("M&inimum:"), m_min);
    form->addRow(QString(), m_logarithmic);
    auto* box = new QVBoxLayout(this);
    box->addLayout(form);
    box->addWidget(m_fault);
    box->addWidget(m_buttons);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    for (QLineEdit* edit : {m_min, m_max})
        connect(edit, &QLineEdit::textChanged, this, &ScaleDialog::check);
    connect(m_logarithmic, &QCheckBox::toggled, this, &ScaleDialog::check);
    check();
    m_max->setFocus();
}

void ScaleDialog::check() {
    const auto min = number(*m_min);
    const auto max = number(*m_max);
    QString fault;
    if (!min || !max) {
        fault = tr("Enter a number for both ends.");
    } else if (*min >= *max) {
        fault = tr("The minimum must be below the maximum.");
    } else if (m_logarithmic->isChecked() && *min <= 0) {
        fault = tr("A logarithmic axis starts above zero.");
    }
    m_fault->setText(fault.isEmpty() ? QStringLiteral(" ") : fault);
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(fault.isEmpty());
}

TrendScale ScaleDialog::scale() const {
    TrendScale edited = m_scale;
    edited.text = m_title->text();
    // What was not touched keeps the digits that are not written.
    if (m_min->text() != m_given.min) edited.actualMin = number(*m_min).value_or(edited.actualMin);
    if (m_max->text() != m_given.max) edited.actualMax = number(*m_max).value_or(edited.actualMax);
    edited.logarithmic = m_logarithmic->isChecked();
    return edited;
}

} // namespace pellam
