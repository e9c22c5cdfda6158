#include "database/ui/CSessionNameDlg.h"

#include "base/MessageSink.h"
#include "base/Utf8.h"
#include "database/odbc/DataSources.h"
#include "database/sessions/SessionFilter.h"
#include "database/sessions/SqlTerm.h"
#include "database/ui/PickBox.h"
#include "database/ui/WorkEvent.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QDateEdit>
#include <QDateTime>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimeEdit>

namespace pellam {

namespace {

QString shown(std::string_view bytes) {
    return QString::fromStdString(toUtf8(bytes));
}

std::string foldCase(std::string_view text) {
    return shown(text).toCaseFolded().toStdString();
}

CTime moment(const QDateEdit* dateEdit, const QTimeEdit* timeEdit) {
    const auto byte = [](int number) { return static_cast<std::uint8_t>(number); };
    const QDate date = dateEdit->date();
    const QTime time = timeEdit->time();
    return {date.year(),       byte(date.month()),  byte(date.day()),
            byte(time.hour()), byte(time.minute()), byte(time.second())};
}

} // namespace

CSessionNameDlg::CSessionNameDlg(Context context, QWidget* parent)
    : QDialog(parent),
      m_context(std::move(context)) {
    setWindowTitle(tr("Session Name"));
    build();
    connectFields();
    OnInitDialog();
}

CSessionNameDlg::~CSessionNameDlg() = default;

void CSessionNameDlg::connectFields() {
    connect(m_dsn, &PickBox::picked, this, &CSessionNameDlg::OnSelchangeDatabase);
    connect(m_session, &PickBox::typed, this, &CSessionNameDlg::OnEditSession);
    connect(m_session, &PickBox::picked, this, &CSessionNameDlg::OnSelchangeSession);
    connect(m_site, &PickBox::typed, this, &CSessionNameDlg::OnEditSite);
    connect(m_site, &PickBox::picked, this, &CSessionNameDlg::OnSelchangeSite);
    connect(m_job, &PickBox::picked, this, &CSessionNameDlg::OnSelchangeJob);
    connect(m_schedule, &PickBox::picked, this, &CSessionNameDlg::OnSelchangeSchedule);
    m_session->setFill([this] { return OnDropdownSession(); });
    m_site->setFill([this] { return OnDropdownSite(); });
    m_job->setFill([this] { return OnDropdownJob(); });
    m_schedule->setFill([this] { return OnDropdownSchedule(); });
    connect(m_fromData, &QCheckBox::clicked, this, &CSessionNameDlg::OnCheck1);
    for (auto* box : {m_dsn, m_session})
        connect(box, &QComboBox::currentTextChanged, this, &CSessionNameDlg::showReady);
    // The mark says that the range is that of the readings of this choice.
    const auto unmark = [this] { m_fromData->setChecked(false); };
    for (auto* box : {m_dsn, m_session, m_site, m_job, m_schedule})
        connect(box, &QComboBox::currentTextChanged, this, unmark);
    for (QDateTimeEdit* picker :
         {static_cast<QDateTimeEdit*>(m_startDate), static_cast<QDateTimeEdit*>(m_startTime),
          static_cast<QDateTimeEdit*>(m_endDate), static_cast<QDateTimeEdit*>(m_endTime)})
        connect(picker, &QDateTimeEdit::dateTimeChanged, this, unmark);
}

void CSessionNameDlg::OnInitDialog() {
    const auto zero =
        QDateTime::fromSecsSinceEpoch(m_context.standardBias + m_context.daylightBias);
    for (auto* date : {m_startDate, m_endDate})
        date->setDate(zero.date());
    for (auto* time : {m_startTime, m_endTime})
        time->setTime(zero.time());
    TextList all;
    all.add("*");
    m_label->setTexts(std::move(all));
    m_label->selectFirst();
    OnFillDSN1();
    m_dsn->setEditText(lastDsn());
    m_request.dataSource = m_dsn->bytes();
    (m_dsn->currentText().isEmpty() ? m_dsn : m_session)->setFocus();
    showReady();
}

void CSessionNameDlg::OnFillDSN1() {
    TextList names;
    for (const auto& source : dataSources())
        names.add(source.name);
    if (names.empty()) m_status->setText(tr("No ODBC data sources are set up."));
    m_dsn->setTexts(std::move(names));
}

// A name with ';' was typed before such were refused, and may hold a password.
QString CSessionNameDlg::lastDsn() const {
    const auto stored = m_context.lastDsn();
    const auto name = stored.section(u';', 0, 0);
    if (name != stored) m_context.saveDsn(name);
    return name;
}

// --- The lists

void CSessionNameDlg::startQuestion(const QString& what) {
    // A name that was typed counts as picked once it is used.
    if (m_dsn->bytes() != m_request.dataSource) rememberDsn();
    m_status->setText(what);
    m_call.begin();
}

void CSessionNameDlg::endQuestion() {
    m_call.end();
    m_status->setText(m_call.stopped() ? tr("Stopped.") : QString());
}

SessionLists CSessionNameDlg::lists() {
    return {m_request.dataSource, m_call, m_context.login, foldCase};
}

template <class Question>
bool CSessionNameDlg::fill(PickBox* box, const QString& what, Question question) {
    startQuestion(what);
    SessionLists::List list = question(lists());
    endQuestion();
    box->setTexts(std::move(list.texts));
    if (!list.failure) return true;
    if (!m_call.stopped() && !list.failure->stopped) m_context.messages.show(list.failure->text);
    return false;
}

bool CSessionNameDlg::OnDropdownSession() {
    const auto question = [](const SessionLists& lists) { return lists.sessions(); };
    if (!fill(m_session, tr("Reading the sessions..."), question)) return false;
    if (m_session->count() == 0) {
        m_status->setText(tr("There are no sessions in this data source."));
        return true;
    }
    m_session->selectFirst();
    OnSelchangeSession();
    return true;
}

bool CSessionNameDlg::OnDropdownSite() {
    const auto question = [this](const SessionLists& lists) {
        return lists.sites(m_request.session);
    };
    if (!fill(m_site, tr("Reading the sites..."), question)) return false;
    m_site->selectFirst();
    OnSelchangeSite();
    return true;
}

bool CSessionNameDlg::OnDropdownJob() {
    const auto question = [this](const SessionLists& lists) {
        return lists.jobs(m_request.session, m_request.site);
    };
    if (!fill(m_job, tr("Reading the jobs..."), question)) return false;
    m_job->selectFirst();
    OnSelchangeJob();
    return true;
}

bool CSessionNameDlg::OnDropdownSchedule() {
    m_request.schedule.clear();
    const auto question = [this](const SessionLists& lists) {
        return lists.schedules(m_request.session, m_request.site);
    };
    if (!fill(m_schedule, tr("Reading the schedules..."), question)) return false;
    m_schedule->selectFirst();
    return true;
}

// --- Choices

void CSessionNameDlg::rememberDsn() {
    m_request.dataSource = m_dsn->bytes();
    if (DataSourceLogin::isName(m_request.dataSource)) m_context.saveDsn(m_dsn->currentText());
}

void CSessionNameDlg::OnSelchangeDatabase() {
    rememberDsn();
    OnDropdownSession();
}

void CSessionNameDlg::OnEditSession() {
    m_request.session = toSqlWildcards(m_session->bytes());
    for (auto* box : {m_site, m_job, m_schedule})
        box->forget(QStringLiteral("*"));
    m_request.site = m_site->bytes();
    m_request.job = m_job->bytes();
}

void CSessionNameDlg::OnEditSite() {
    m_request.site = m_site->bytes();
    for (auto* box : {m_job, m_schedule})
        box->forget(QStringLiteral("*"));
    m_request.job = m_job->bytes();
}

void CSessionNameDlg::OnSelchangeSession() {
    m_request.session = m_session->bytes();
    OnDropdownSite();
}

void CSessionNameDlg::OnSelchangeSite() {
    m_request.site = m_site->bytes();
    OnDropdownJob();
}

void CSessionNameDlg::OnSelchangeJob() {
    m_request.job = m_job->bytes();
    OnDropdownSchedule();
}

void CSessionNameDlg::OnSelchangeSchedule() {
    m_request.schedule = m_schedule->bytes();
}

void CSessionNameDlg::takeFields() {
    m_request.session = m_session->bytes();
    m_request.site = m_site->bytes();
    m_request.job = m_job->bytes();
    m_request.schedule = m_schedule->bytes();
    m_request.label = m_label->bytes();
}

// --- The range

void CSessionNameDlg::OnCheck1() {
    takeFields();
    m_request = withSqlWildcards(m_request);
    startQuestion(tr("Looking for the first and the last reading..."));
    const auto range = lists().range(m_request, isMySqlDriver(firstDriverText()));
    endQuestion();
    setPickers(m_startDate, m_startTime, range.earliest);
    setPickers(m_endDate, m_endTime, range.latest);
    const bool found = !range.earliest.isNull() && !range.latest.isNull();
    m_fromData->setChecked(found);
    if (!found && !m_call.stopped())
        m_status->setText(range.failure ? tr("The first and the last reading could not be found.")
                                        : tr("No reading fits this choice."));
    WorkEvent::post(parentWidget(), false);
}

void CSessionNameDlg::setPickers(QDateEdit* date, QTimeEdit* time, const CTime& moment) {
    if (moment.isNull()) return;
    date->setDate({moment.year, moment.month, moment.day});
    time->setTime({moment.hour, moment.minute, moment.second});
}

// --- Closing

void CSessionNameDlg::showReady() {
    m_ok->setEnabled(!m_dsn->currentText().isEmpty() && !m_session->currentText().isEmpty());
}

void CSessionNameDlg::OnOK() {
    if (m_call.isRunning() || !m_ok->isEnabled()) return;
    if (m_dsn->bytes() != m_request.dataSource) rememberDsn();
    if (!DataSourceLogin::isName(m_request.dataSource))
        return m_context.messages.show(DataSourceLogin::notAName().text);
    takeFields();
    m_request.start = moment(m_startDate, m_startTime);
    m_request.end = moment(m_endDate, m_endTime);
    QDialog::accept();
}

void CSessionNameDlg::reject() {
    if (m_call.isRunning())
        m_call.stop();
    else
        QDialog::reject();
}

void CSessionNameDlg::closeEvent(QCloseEvent* event) {
    if (!m_call.isRunning()) return QDialog::closeEvent(event);
    m_call.stop();
    event->ignore();
}

} // namespace pellam
