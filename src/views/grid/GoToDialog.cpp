#include "views/grid/GoToDialog.h"

#include "grid/TimeColumn.h"
#include "times/TimeUnit.h"
#include "views/sheet/GridModel.h"
#include "views/text/ScreenText.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace pellam {

GoToDialog::GoToDialog(const GridData& grid, const InternationalSettings& settings, Row current,
                       QWidget* parent)
    : QDialog(parent),
      m_grid(grid),
      m_form(TimeColumn(grid, settings).form()),
      m_finder(grid, settings),
      m_current(current),
      m_wanted(new QLineEdit),
      m_remark(new QLabel) {
    setWindowTitle(tr("Go To"));
    auto* label = new QLabel(grid.hasTimes() ? tr("&Row number or time:") : tr("&Row number:"));
    label->setBuddy(m_wanted);
    const QString first = timeOf(0);
    const QString last = grid.rowCount() > 0 ? timeOf(grid.rowCount() - 1) : QString();
    auto* range = new QLabel(
        last.isEmpty() ? tr("There are %L1 rows.").arg(grid.rowCount())
                       : tr("Rows 1 to %L1, %2 to %3").arg(grid.rowCount()).arg(first, last));
    range->setTextFormat(Qt::PlainText);
    m_wanted->setPlaceholderText(first.isEmpty() ? QString() : tr("120 or %1").arg(first));
    m_wanted->setMinimumWidth(fontMetrics().averageCharWidth() * 44);
    m_remark->setWordWrap(true);
    m_remark->setMinimumHeight(fontMetrics().height());

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
    ok->setText(tr("&Go"));
    ok->setEnabled(false);
    auto* box = new QVBoxLayout(this);
    box->addWidget(label);
    box->addWidget(m_wanted);
    box->addWidget(range);
    box->addWidget(m_remark);
    box->addWidget(buttons);

    connect(m_wanted, &QLineEdit::textChanged, this, [this, ok](const QString& text) {
        ok->setEnabled(!text.trimmed().isEmpty());
        m_finder.stop();
        m_remark->clear();
    });
    connect(buttons, &QDialogButtonBox::accepted, this, &GoToDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &GoToDialog::reject);
    connect(&m_finder, &GridFinder::located, this, [this](qint64 row) {
        m_row = row;
        QDialog::accept();
    });
    connect(&m_finder, &GridFinder::notLocated, this, [this](RowLocator::State why) {
        m_remark->setText(explain(why));
        layout()->activate();
        resize(width(), std::max(height(), layout()->totalHeightForWidth(width())));
        m_wanted->selectAll();
        m_wanted->setFocus();
    });
}

// As it can be typed: a count with its unit, since a whole number alone is a row's.
QString GoToDialog::timeOf(Row row) const {
    if (!m_grid.hasTimes()) return {};
    CellBuffer buffer;
    const QString text = screenText(m_grid.text(0, row, buffer));
    const std::string& form = m_form.name();
    if (text.isEmpty() || !form.starts_with("elapsed-") || !timeUnit(form)) return text;
    if (!unitBehind(text.toStdString()).name.empty()) return text;
    return text.trimmed() + u' ' + QString::fromStdString(form.substr(form.find('-') + 1));
}

void GoToDialog::accept() {
    m_remark->setText(tr("Searching…"));
    m_finder.locate(m_wanted->text(), m_current);
}

QString GoToDialog::explain(RowLocator::State why) const {
    switch (why) {
    case RowLocator::State::NoSuchRow:
        return tr("There is no row of this number: the rows are 1 to %L1.").arg(m_grid.rowCount());
    case RowLocator::State::NoRowAtOrAfter:
        return tr("No row has this time or a later one.");
    default:
        break;
    }
    if (!m_grid.hasTimes())
        return tr("Write a row number from 1 to %L1: the file has no times.")
            .arg(m_grid.rowCount());
    const bool elapsed = m_form.kind() == TimeForm::Kind::Elapsed;
    return tr("No row has a time that begins like this. Write a row number, or a time such as %1.")
        .arg(elapsed ? tr("0:00:10 or 250 ms") : tr("2008/02/25 12:30"));
}

} // namespace pellam
