#include "app/frame/FrameStatusBar.h"

#include "app/frame/FiguresLabel.h"
#include "replay/outcome/LoadOutcome.h"

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QStatusBar>

namespace pellam {

FrameStatusBar::FrameStatusBar(QStatusBar* bar) : QObject(bar), m_bar(bar) {
    m_cell = new FiguresLabel;
    m_cell->setContentsMargins(6, 0, 6, 0);
    m_cell->setAccessibleDescription(tr("Current cell"));
    bar->addWidget(m_cell, 1);
    m_selection = new FiguresLabel;
    addField(m_selection, tr("Selected cells"));
    m_stopped = addField(tr("Load"));
    m_rows = addField(tr("Rows"));
    m_channels = addField(tr("Channels"));
    m_damaged = addField(tr("Bad lines"));
    m_passedOver = addField(tr("Passed over"));
    m_details = new QPushButton(tr("Details"));
    m_details->setFlat(true);
    m_details->setToolTip(tr("Show what of the file stands in no cell"));
    m_details->hide();
    bar->addPermanentWidget(m_details);
    connect(m_details, &QPushButton::clicked, this, &FrameStatusBar::detailsWanted);
    m_file = addField(tr("File"));
    showLoad({});
    // A remark needs the room; the figures come back after it.
    connect(bar, &QStatusBar::messageChanged, this, [this](const QString& remark) {
        m_selection->setVisible(remark.isEmpty() && !m_selection->wholeText().isEmpty());
    });
}

QLabel* FrameStatusBar::addField(const QString& name) {
    auto* field = new QLabel;
    addField(field, name);
    return field;
}

void FrameStatusBar::addField(QLabel* field, const QString& name) {
    // Not the name: that would stand in for the text.
    field->setAccessibleDescription(name);
    field->setContentsMargins(6, 0, 6, 0);
    // Bytes of a file name are text, never markup.
    field->setTextFormat(Qt::PlainText);
    field->hide();
    m_bar->addPermanentWidget(field);
}

void FrameStatusBar::showPassedOver(const PassedOver& passedOver) {
    const auto causes = passedOver.total() > 0 ? passedOver.texts() : std::vector<std::string>();
    set(m_passedOver, causes.empty() ? QString()
                      : causes.size() == 1
                          ? tr("Passed over: %1").arg(QString::fromStdString(causes[0]))
                          : tr("Passed over: %1 for %2 reasons")
                                .arg(QLocale().toString(qlonglong(passedOver.total())))
                                .arg(causes.size()));
    m_details->setVisible(!causes.empty());
}

void FrameStatusBar::set(QLabel* field, const QString& text) {
    field->setText(text);
    field->setVisible(!text.isEmpty());
}

void FrameStatusBar::showLoad(const LoadOutcome& outcome, const QString& session) {
    const QLocale locale;
    const bool loaded = outcome.loaded;
    const auto path = session.isEmpty() ? QFile::decodeName(outcome.path.c_str()) : session;
    const auto name = session.isEmpty() ? QFileInfo(path).fileName() : session;
    set(m_stopped, outcome.incomplete ? tr("Load aborted: the session goes on")
                   : !outcome.aborted ? QString()
                   : loaded           ? tr("Load stopped: the file goes on")
                                      : tr("Load stopped"));
    set(m_rows, loaded ? tr("Rows: %1").arg(locale.toString(qlonglong(outcome.rows))) : QString());
    set(m_channels, loaded ? tr("Channels: %1").arg(outcome.channels) : QString());
    set(m_damaged, loaded
                       ? tr("Bad lines: %1").arg(locale.toString(qlonglong(outcome.damagedLines)))
                       : QString());
    auto font = m_damaged->font();
    font.setBold(outcome.damagedLines > 0);
    m_damaged->setFont(font);
    showPassedOver(loaded ? outcome.passedOver : PassedOver());
    set(m_file, loaded ? m_file->fontMetrics().elidedText(name, Qt::ElideMiddle, 320) : QString());
    m_file->setToolTip(QDir::toNativeSeparators(path));
}

void FrameStatusBar::showSelection(const QStringList& figures) {
    m_selection->setFigures(figures);
    m_selection->setVisible(!figures.isEmpty() && m_bar->currentMessage().isEmpty());
}

void FrameStatusBar::showCell(const QStringList& facts) {
    m_cell->setFigures(facts);
}

QStringList FrameStatusBar::texts() const {
    QStringList shown;
    if (!m_selection->wholeText().isEmpty()) shown += m_selection->wholeText();
    for (const auto* field : {m_stopped, m_rows, m_channels, m_damaged, m_passedOver, m_file})
        if (!field->text().isEmpty()) shown += field->text();
    return shown;
}

} // namespace pellam
