#include "ui/dialogs/CConnectionStatus.h"

#include "base/Utf8.h"
#include "ui/dialogs/InputEvents.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>
#include <ctime>

namespace pellam {

namespace {

/// Steps of the bar: finer than its pixels, and within an int whatever the caller's range is.
constexpr int kBarSteps = 10000;

QString shown(std::string_view text) {
    return QString::fromStdString(toUtf8(text));
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// True when two texts are equal but for their numbers, which may differ in length too.
bool sameButForNumbers(std::string_view a, std::string_view b) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        if (isDigit(a[i]) && isDigit(b[j])) {
            while (i < a.size() && isDigit(a[i]))
                ++i;
            while (j < b.size() && isDigit(b[j]))
                ++j;
        } else if (a[i++] != b[j++]) {
            return false;
        }
    }
    return i == a.size() && j == b.size();
}

std::string localTimeText(std::time_t time) {
    std::tm local{};
    localtime_r(&time, &local);
    char text[32];
    return {text, std::strftime(text, sizeof text, "%Y/%m/%d %H:%M:%S", &local)};
}

QLabel* plainLabel(const QString& name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

CConnectionStatus::CConnectionStatus(QWidget* parent, const QString& title) : QDialog(parent) {
    setWindowTitle(title);
    setModal(false);
    buildLayout();
}

CConnectionStatus::~CConnectionStatus() = default;

void CConnectionStatus::buildLayout() {
    m_heading = plainLabel(QStringLiteral("heading"), this);
    QFont bold = m_heading->font();
    bold.setBold(true);
    m_heading->setFont(bold);
    m_heading->hide();

    m_line = plainLabel(QStringLiteral("line"), this);
    m_line->setWordWrap(true);
    m_line->setAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    m_line->setAccessibleName(tr("Status"));
    // Room for two lines, so that the window does not jump while texts change.
    m_line->setMinimumSize(m_line->fontMetrics().averageCharWidth() * 52,
                           m_line->fontMetrics().lineSpacing() * 2);

    m_bar = new QProgressBar(this);
    m_bar->setRange(0, kBarSteps);
    m_bar->setAccessibleName(tr("Progress"));

    m_abort = new QPushButton(tr("&Abort"), this);
    m_hide = new QPushButton(tr("&Hide"), this);
    m_hide->setToolTip(tr("Hide this window; the work goes on"));
    for (QPushButton* button : {m_abort, m_hide}) {
        // A key meant for the main window must not press a button of a window that has just come
        // up.
        button->setAutoDefault(false);
        button->setDefault(false);
    }

    arrange();
    connect(m_abort, &QPushButton::clicked, this, &CConnectionStatus::OnAbort);
    connect(m_hide, &QPushButton::clicked, this, &CConnectionStatus::OnButton2);
}

void CConnectionStatus::arrange() {
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_abort);
    buttons->addWidget(m_hide);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(10);
    column->addWidget(m_heading);
    column->addWidget(m_line, 1);
    column->addWidget(m_bar);
    column->addLayout(buttons);
}

void CConnectionStatus::AddString(std::string_view text, bool atOnce) {
    const bool newStage = !sameButForNumbers(text, m_text);
    log(text, newStage);
    // "Aborting..." stays until the operation has ended.
    if (m_aborted) return pumpIfDue();
    m_text.assign(text);
    if (newStage || atOnce)
        pump();
    else
        pumpIfDue();
}

void CConnectionStatus::log(std::string_view text, bool newStage) {
    if (newStage) m_lastLine = m_log.size();
    m_log.resize(m_lastLine);
    // Texts come far more often than once a second, and formatting a time costs more than the rest.
    const std::time_t now = std::time(nullptr);
    if (now != m_logTime || m_logTimeText.empty()) {
        m_logTime = now;
        m_logTimeText = localTimeText(now);
    }
    m_log.append(m_logTimeText).append(" ").append(text).append("\r\n");
}

void CConnectionStatus::SetProgressRange(std::int64_t first, std::int64_t last) {
    m_first = first;
    m_last = std::max(first, last);
    m_position = first;
    pumpIfDue();
}

void CConnectionStatus::SetProgressPos(std::int64_t position) {
    m_position = std::clamp(position, m_first, m_last);
    m_positionKnown = true;
    pumpIfDue();
}

void CConnectionStatus::StepIt() {
    const std::int64_t step = std::max<std::int64_t>(1, m_last / 10 - m_first / 10);
    SetProgressPos(m_last - m_position > step ? m_position + step : m_last);
}

void CConnectionStatus::HideWindow(int milliseconds) {
    QTimer::singleShot(milliseconds, this, &QWidget::hide);
}

void CConnectionStatus::start(std::string_view title, std::string_view firstLine,
                              std::int64_t first, std::int64_t last) {
    if (m_running++ == 0) {
        m_aborted = false;
        m_hiddenByUser = false;
        m_abort->setEnabled(true);
        m_sinceStart.start();
        m_sincePump.start();
        m_text.clear();
        m_log.clear();
        m_lastLine = 0;
    }
    setWindowTitle(shown(title));
    m_heading->hide();
    m_positionKnown = false;
    SetProgressRange(first, last);
    AddString(firstLine);
}

void CConnectionStatus::setWindowText(std::string_view text) {
    m_heading->setText(windowTitle());
    m_heading->show();
    setWindowTitle(shown(text));
}

void CConnectionStatus::finish() {
    if (m_running == 0 || --m_running > 0) return;
    m_abort->setEnabled(false);
    hide();
    if (m_closeLater) {
        QMetaObject::invokeMethod(m_closeLater.data(), &QWidget::close, Qt::QueuedConnection);
        m_closeLater.clear();
    }
}

void CConnectionStatus::OnAbort() {
    if (m_aborted) return;
    m_aborted = true;
    m_abort->setEnabled(false);
    log("Aborting...", true);
    m_text = "Aborting...";
    refresh();
    if (isVisible()) repaint();
    if (m_postAbort) Q_EMIT abortPosted();
}

void CConnectionStatus::OnButton2() {
    m_hiddenByUser = true;
    hide();
}

void CConnectionStatus::reject() {
    OnAbort();
    if (!isRunning()) QDialog::reject();
}

void CConnectionStatus::closeEvent(QCloseEvent* event) {
    if (!isRunning()) {
        QDialog::closeEvent(event);
        return;
    }
    OnAbort();
    event->ignore();
}

void CConnectionStatus::pumpIfDue() {
    if (!m_sincePump.isValid() || m_sincePump.elapsed() >= kPumpEvery) pump();
}

void CConnectionStatus::pump() {
    // Code run by an event may report progress too; it must not pump within the pump.
    if (m_pumping) return;
    m_sincePump.start();
    refresh();
    const bool late = isRunning() && !m_hiddenByUser && m_sinceStart.elapsed() >= kShowAfter;
    if (late && !isVisible()) appear();
    // A window that was shown without start() is served as well; one that is not is left alone.
    if (!isRunning() && !isVisible()) return;
    m_pumping = true;
    const QPointer<CConnectionStatus> alive(this);
    qApp->installEventFilter(this);
    QCoreApplication::processEvents(QEventLoop::AllEvents, kPumpEvery / 2);
    if (!alive) return;
    qApp->removeEventFilter(this);
    m_pumping = false;
    m_sincePump.start();
}

void CConnectionStatus::appear() {
    adjustSize();
    if (const QWidget* owner = parentWidget()) {
        const QRect around = owner->window()->frameGeometry();
        move(around.center() - rect().center());
    }
    show();
    // No button has the keyboard until Tab is pressed, see buildLayout().
    setFocus(Qt::OtherFocusReason);
}

void CConnectionStatus::refresh() {
    const QString text = shown(m_text);
    if (m_line->text() != text) m_line->setText(text);
    // Without a range the bar is busy: how much there is to do is not known.
    m_bar->setRange(0, m_positionKnown ? kBarSteps : 0);
    if (!m_positionKnown) return;
    const auto span = static_cast<double>(m_last) - static_cast<double>(m_first);
    const auto done = static_cast<double>(m_position) - static_cast<double>(m_first);
    m_bar->setValue(span > 0 ? static_cast<int>(done / span * kBarSteps) : kBarSteps);
}

bool CConnectionStatus::isOwn(const QObject* object) const {
    if (object == this || (windowHandle() && object == windowHandle())) return true;
    for (const QObject* up = object; up; up = up->parent())
        if (up == this) return true;
    return false;
}

void CConnectionStatus::rememberClose(QObject* window) {
    const auto topLevels = QApplication::topLevelWidgets();
    for (QWidget* widget : topLevels)
        if (widget == window || (window->isWindowType() && widget->windowHandle() == window))
            m_closeLater = widget;
    OnAbort();
}

bool CConnectionStatus::eventFilter(QObject* watched, QEvent* event) {
    if (isOwn(watched)) return false;
    if (event->type() == QEvent::Close) {
        event->ignore();
        rememberClose(watched);
        return true;
    }
    // Whoever tries to work meanwhile sees why nothing happens.
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress)
        m_hiddenByUser = false;
    return isInput(event->type());
}

} // namespace pellam
