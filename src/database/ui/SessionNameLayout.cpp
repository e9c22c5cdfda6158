#include "database/ui/CSessionNameDlg.h"
#include "database/ui/PickBox.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimeEdit>
#include <QTimeZone>
#include <QVBoxLayout>

namespace pellam {

namespace {

/// A date picker and a time picker beside each other, in `row`.
template <class Picker>
Picker* addPicker(QHBoxLayout* row, const QString& format, const QString& name) {
    auto* picker = new Picker;
    // Fields of the calendar, not moments: no zone may skip one of them.
#if QT_VERSION >= QT_VERSION_CHECK(6, 7, 0)
    picker->setTimeZone(QTimeZone::utc());
#else
    picker->setTimeSpec(Qt::UTC);
#endif
    picker->setDisplayFormat(format);
    picker->setAccessibleName(name);
    row->addWidget(picker, 1);
    return picker;
}

QLabel* hint(const QString& text) {
    auto* label = new QLabel(text);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

} // namespace

void CSessionNameDlg::build() {
    auto* column = new QVBoxLayout(this);
    column->setSpacing(14);
    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    buildFields(form);
    buildRange(form);
    column->addLayout(form);
    column->addStretch(1);
    column->addWidget(buildFoot());
}

PickBox* CSessionNameDlg::addField(QFormLayout* form, const QString& label, const QString& name) {
    auto* box = new PickBox;
    box->setAccessibleName(name);
    form->addRow(label, box);
    return box;
}

void CSessionNameDlg::buildFields(QFormLayout* form) {
    m_dsn = addField(form, tr("&Data source:"), tr("Data source"));
    form->addItem(new QSpacerItem(0, 4));
    m_session = addField(form, tr("&Session:"), tr("Session"));
    m_site = addField(form, tr("S&ite:"), tr("Site"));
    m_job = addField(form, tr("&Job:"), tr("Job"));
    m_schedule = addField(form, tr("S&chedule:"), tr("Schedule"));
    m_label = addField(form, tr("&Label:"), tr("Label"));
    form->addRow(QString(), hint(tr("* stands for any text, ? for one character.")));
}

void CSessionNameDlg::buildRange(QFormLayout* form) {
    const auto date = QStringLiteral("yyyy/MM/dd");
    const auto time = QStringLiteral("HH:mm:ss");
    auto* start = new QHBoxLayout;
    m_startDate = addPicker<QDateEdit>(start, date, tr("Start date"));
    m_startTime = addPicker<QTimeEdit>(start, time, tr("Start time"));
    auto* end = new QHBoxLayout;
    m_endDate = addPicker<QDateEdit>(end, date, tr("End date"));
    m_endTime = addPicker<QTimeEdit>(end, time, tr("End time"));
    const auto addRow = [form](const QString& text, QHBoxLayout* row, QWidget* buddy) {
        auto* label = new QLabel(text);
        label->setBuddy(buddy);
        form->addRow(label, row);
    };
    addRow(tr("Star&t:"), start, m_startDate);
    addRow(tr("&End:"), end, m_endDate);
    for (auto* picker : {m_startDate, m_endDate})
        picker->setCalendarPopup(true);
    m_fromData = new QCheckBox(tr("&From the first to the last reading"));
    form->addRow(QString(), m_fromData);
    form->addRow(QString(), hint(tr("A start or end before 1989 sets no limit.")));
}

QWidget* CSessionNameDlg::buildFoot() {
    auto* foot = new QWidget;
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(0, 0, 0, 0);
    m_status = new QLabel;
    m_status->setTextFormat(Qt::PlainText);
    m_status->setAccessibleName(tr("Status"));
    m_status->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    m_ok->setDefault(true);
    auto* cancel = buttons->button(QDialogButtonBox::Cancel);
    // Stopping a question leaves the keyboard where it was.
    cancel->setFocusPolicy(Qt::TabFocus);
    m_call.setStopButton(cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &CSessionNameDlg::OnOK);
    connect(buttons, &QDialogButtonBox::rejected, this, &CSessionNameDlg::reject);
    row->addWidget(m_status, 1);
    row->addWidget(buttons);
    return foot;
}

} // namespace pellam
