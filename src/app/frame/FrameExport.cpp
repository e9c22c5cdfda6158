#include "app/frame/FrameExport.h"

#include "base/Failure.h"
#include "base/FileName.h"
#include "base/MessageSink.h"
#include "base/ProgressSink.h"
#include "ui/dialogs/MessageMemory.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>

namespace pellam {

namespace {

QString csvFilter() {
    return QStringLiteral("CSV Files (*.csv)");
}

QString txtFilter() {
    return QStringLiteral("Text Files (*.txt)");
}

QString suffixOf(const QString& filter) {
    return filter == txtFilter() ? QStringLiteral("txt") : QStringLiteral("csv");
}

std::string nativePath(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

} // namespace

FrameExport::FrameExport(ExportContext context)
    : QObject(context.window),
      m_context(std::move(context)) {
    connect(&m_opener, &DesktopOpener::failed, this, [this](const QString& path) {
        const auto text =
            tr("Warning: No program could open %1.\nChoose a program for CSV files in "
               "the settings of your desktop.");
        m_context.messages.show(text.arg(QDir::toNativeSeparators(path)).toStdString());
    });
}

void FrameExport::exportData() {
    if (m_context.saveFolder().isEmpty()) m_context.openPreferences();
    const auto path = askForFile({.filters = {csvFilter(), txtFilter()},
                                  .folder = m_context.saveFolder(),
                                  .name = QFileInfo(m_context.loadedFile()).completeBaseName()});
    if (path) writeByExtension(*path);
}

void FrameExport::writeByExtension(const QString& path) {
    const auto form = GridWriter::formOf(QFileInfo(path).suffix().toStdString());
    if (form) write(path, *form);
}

bool FrameExport::write(const QString& path, GridWriter::Form form) {
    const std::string target = nativePath(path);
    const bool same = isSameFile(target, nativePath(m_context.loadedFile()));
    const Failure failure =
        same ? Failure::isLoaded(target)
             : GridWriter(m_context.grid)
                   .write(target, form, m_context.listSeparator, m_context.progress());
    const auto name = QFileInfo(path).fileName();
    if (failure.kind == Failure::Kind::Aborted) {
        Q_EMIT notice(tr("Export stopped: nothing was written to %1").arg(name));
    } else if (failure) {
        m_context.messages.show(failure.text());
    } else {
        Q_EMIT written();
        Q_EMIT notice(tr("Exported to %1").arg(QDir::toNativeSeparators(path)));
    }
    return !failure;
}

void FrameExport::viewInSpreadsheet() {
    const auto rows = m_context.grid.rowCount();
    const auto question = QStringLiteral("The file contains more rows (%1) than will load into an "
                                         "external spreadsheet.\r\nDo you wish to continue?");
    if (rows > kSpreadsheetRows &&
        m_context.memory.question(m_context.window, QStringLiteral("SpreadsheetRows"),
                                  question.arg(rows), QMessageBox::Yes | QMessageBox::No,
                                  QMessageBox::Warning) != QMessageBox::Yes)
        return;

    const QFileInfo loaded(m_context.loadedFile());
    const auto path = askForFile({.filters = {csvFilter()},
                                  .folder = loaded.absolutePath(),
                                  .name = loaded.completeBaseName()});
    if (!path || !write(*path, GridWriter::Form::Csv)) return;
    // Desktops go by the name, and one such as "x.desktop" would make the file a program.
    if (path->endsWith(u".csv", Qt::CaseInsensitive))
        m_opener.open(*path);
    else
        Q_EMIT m_opener.failed(*path);
}

std::optional<QString> FrameExport::askForFile(const Question& question) {
    while (const auto path = runDialog(question)) {
        if (!QFileInfo::exists(*path)) return path;
        if (const auto file = nativePath(*path);
            isSameFile(file, nativePath(m_context.loadedFile()))) {
            m_context.messages.show(Failure::isLoaded(file).text());
            continue;
        }
        QMessageBox box(QMessageBox::Warning, QCoreApplication::applicationName(),
                        QStringLiteral("The file already exists, Do you want to overwrite it ?"),
                        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, m_context.window);
        box.setInformativeText(QDir::toNativeSeparators(*path));
        for (auto* label : box.findChildren<QLabel*>())
            label->setTextFormat(Qt::PlainText);
        box.setDefaultButton(QMessageBox::No);
        const auto answer = box.exec();
        if (answer == QMessageBox::Yes) return path;
        if (answer == QMessageBox::Cancel) return std::nullopt;
    }
    return std::nullopt;
}

std::optional<QString> FrameExport::runDialog(const Question& question) {
    QFileDialog dialog(m_context.window, QStringLiteral("Select Output File"), question.folder);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    // The question about an existing file is ours: it has three answers.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setNameFilters(question.filters);
    dialog.selectFile(question.name);
    dialog.setDefaultSuffix(suffixOf(question.filters.front()));
    connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
        dialog.setDefaultSuffix(suffixOf(filter));
        // The dialog has put the filter's extension in place of what stands behind the last point:
        // in a proposed name such as "site.2008" that was no extension.
        const auto cut = QFileInfo(question.name).completeBaseName() + u'.' + suffixOf(filter);
        auto* field = dialog.findChild<QLineEdit*>();
        if (field && field->text() == cut) field->setText(question.name);
    });
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;

    auto path = dialog.selectedFiles().value(0);
    if (QFileInfo(path).fileName() == question.name)
        path += u'.' + suffixOf(dialog.selectedNameFilter());
    return path;
}

} // namespace pellam
