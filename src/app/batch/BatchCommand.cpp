#include "app/batch/BatchCommand.h"

#include "app/batch/ChartOutput.h"
#include "app/print/GridPdf.h"
#include "base/FileName.h"
#include "base/Utf8.h"
#include "export/GridWriter.h"
#include "logger/CDumpDBD.h"
#include "logger/TaggedDownload.h"
#include "replay/load/FileLoader.h"
#include "replay/outcome/FileFacts.h"
#include "settings/SaveFolder.h"
#include "views/chart/ClockMemory.h"

#include <QFile>
#include <QGuiApplication>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

namespace pellam {

namespace {

/// Keeps the numbers 0 to 2 taken: a file of ours must never become the standard output.
void occupyStandardStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(stream, F_GETFD) != -1) continue;
        // Opened the other way round, so that using a closed stream still fails.
        (void)::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

/// Writes to standard output; nothing on success.
Failure writeOut(const std::string& content) {
    const std::string text = forTerminal(content);
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (written && std::fflush(stdout) == 0) return {};
    return Failure::fromErrno(Failure::Kind::Write, "standard output", errno);
}

int finishWith(const std::string& text) {
    const Failure failure = writeOut(text);
    if (failure) std::fprintf(stderr, "%s\n", failure.text().c_str());
    return failure ? kFailed : kDone;
}

std::string fileNameOf(const std::string& path) {
    return toUtf8(std::filesystem::path(path).filename().string());
}

/// A settings file that is named must be there; nothing when it is, or none is named.
Failure noSettingsFile(const CommandLine& line) {
    if (line.settings.empty() || ::access(line.settings.c_str(), R_OK) == 0) return {};
    return Failure::fromErrno(Failure::Kind::Open, line.settings, errno);
}

/// Standard error is for our own messages; what Qt remarks about its surroundings is none of them.
void keepQtQuiet(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type != QtFatalMsg) return;
    std::fprintf(stderr, "%s\n", qPrintable(text));
    std::_Exit(kFailed); // Qt would end the program by a signal
}

} // namespace

BatchCommand::BatchCommand(const CommandLine& line)
    : m_line(line),
      m_settings(line.settings.empty() ? SettingsStore::defaultPath()
                                       : QFile::decodeName(line.settings.c_str())),
      m_international(m_settings.international(InternationalSettings::fromLocale())),
      m_grid(m_international.decimalSeparator),
      m_chooser(line.channels),
      m_corrections(TimeCorrections::fromZone(std::time(nullptr))) {}

int BatchCommand::run() {
    bool done = m_line.convert.empty() || convert();
    done = (m_line.dump.empty() || dump()) && done;
    if (m_line.database.list) done = report(writeOut(m_session.list())) && done;
    if (!m_line.database.request.session.empty() && !fetchSession()) return kFailed;
    if (m_line.hasOutput()) {
        if (!load()) return kFailed;
        done = makeOutputs() && done;
    }
    if (!done || m_messages.failed()) return kFailed;
    if (m_progress.aborted()) m_messages.show("Information: All was written before the stop.");
    return kDone;
}

bool BatchCommand::makeOutputs() {
    bool done = true;
    for (const std::string& path : m_line.exports)
        done = report(write(path)) && done;
    for (const std::string& path : m_line.prints)
        done = report(print(path)) && done;
    if (!m_line.charts.empty()) done = drawCharts() && done;
    if (m_line.info) done = writeInfo() && done;
    return done;
}

bool BatchCommand::fetchSession() {
    if (!m_session.fetch()) return false;
    bool kept = true;
    for (const std::string& path : m_line.database.replays)
        kept = report(m_session.keep(path)) && kept;
    return kept || m_line.hasOutput();
}

bool BatchCommand::load() {
    const bool stored = !m_line.database.request.session.empty();
    const std::string& source = stored ? m_line.database.request.session : m_line.file;
    const auto saveFolder = [this] {
        return QFile::encodeName(pellam::saveFolder(m_settings)).toStdString();
    };
    FileLoader loader({m_grid,
                       m_international,
                       m_messages,
                       m_progress,
                       m_chooser,
                       false,
                       saveFolder,
                       {},
                       stored,
                       m_line.layout});
    m_outcome = loader.load(stored ? m_session.path() : m_line.file);
    if (stored) m_session.complete(m_outcome);
    m_title = stored ? toUtf8(source) : fileNameOf(m_outcome.path);
    if (m_outcome.aborted) {
        m_messages.show(Failure{Failure::Kind::Aborted, source, -1, {}}.text());
        return false;
    }
    if (const std::string& missed = m_outcome.layout.missed; !missed.empty()) {
        m_messages.show("Attention: There is no " + missed + " among the first lines of " + source +
                        ", which tell its layout.");
        return false;
    }
    if (!m_outcome.loaded) {
        if (!m_messages.spoke()) m_messages.show("Nothing was loaded from " + source + '.');
        return false;
    }
    const bool channels = m_outcome.kind != LoadOutcome::Kind::Alarm;
    if (channels && !m_outcome.largeFile && !m_chooser.choosesAll()) keepChosenColumns();
    if (m_grid.channelCount() > 0 || m_chooser.choosesAll()) return true;
    m_messages.show("Attention: No channels selected");
    return false;
}

/// A small file is loaded whole; brings it to what a large file would give.
void BatchCommand::keepChosenColumns() {
    int kept = 0;
    for (int i = 1; i <= m_grid.channelCount(); ++i) {
        if (m_chooser.matches(m_grid.column(i).label())) m_grid.moveColumn(i, ++kept);
    }
    m_grid.setChannelCount(kept);
    m_grid.setColumnCount(kept + 1);
    for (int i = kept + 1; i < m_grid.columnCount(); ++i) {
        m_grid.column(i).setCharted(false);
        m_grid.column(i).setLabel({});
    }
}

bool BatchCommand::writeInfo() {
    const SessionRequest& request = m_line.database.request;
    std::string text;
    for (const FileFact& fact :
         fileFacts(m_outcome, m_grid, {request.dataSource, request.session})) {
        text += fact.name + ": " + fact.value + '\n';
    }
    return report(writeOut(text));
}

bool BatchCommand::report(const Failure& failure) {
    if (failure) m_messages.show(failure.text());
    return !failure;
}

bool BatchCommand::isSource(const std::string& target) const {
    return isSameFile(target, m_line.file) || isSameFile(target, m_outcome.path);
}

Failure BatchCommand::write(const std::string& path) {
    if (isSource(path)) return Failure::isLoaded(path);
    if (m_progress.aborted()) return {Failure::Kind::Aborted, path, -1, {}};
    const auto asked = GridWriter::formOf(m_line.format).value_or(GridWriter::Form::Csv);
    const auto form = GridWriter::formOf(extensionOf(path)).value_or(asked);
    return GridWriter(m_grid).write(path, form, m_international.listSeparator, m_progress);
}

Failure BatchCommand::print(const std::string& path) {
    if (isSource(path)) return Failure::isLoaded(path);
    return printToPdf(m_grid, m_title, path, m_progress);
}

bool BatchCommand::drawCharts() {
    ChartOutput chart(m_grid, m_international, m_progress, ClockMemory(m_settings), m_title);
    if (m_progress.aborted()) {
        return report({Failure::Kind::Aborted, m_line.charts.front(), -1, {}});
    }
    if (!chart.nothingToDraw().empty()) {
        m_messages.show(chart.nothingToDraw());
        return false;
    }
    bool done = true;
    for (const std::string& path : m_line.charts) {
        done = report(isSource(path) ? Failure::isLoaded(path)
                                     : chart.write(path, m_line.chartWidth, m_line.chartHeight)) &&
               done;
    }
    return done;
}

bool BatchCommand::convert() {
    std::string output;
    if (!report(convertTaggedDownloadBeside(m_line.convert, output))) return false;
    if (output != taggedDownloadOutput(m_line.convert))
        m_messages.show("Information: The conversion is " + output +
                        "; another file has its usual name.");
    return true;
}

bool BatchCommand::dump() {
    CDumpDBD dumper({m_international, m_messages, m_progress});
    const int result = dumper.dumpFile({m_line.file}, m_line.dump, m_line.dumpOptions);
    if (dumper.aborted()) return report({Failure::Kind::Aborted, m_line.dump, -1, {}});
    return result == CDumpDBD::kDone && report(dumper.damage().failure(m_line.file));
}

int runBatch(const CommandLine& line) {
    occupyStandardStreams();
    if (!line.error.empty()) {
        std::fprintf(stderr, "pellam: %s\n%s\n", line.error.c_str(), CommandLine::usage().c_str());
        return kWrongUsage;
    }
    if (line.help) return finishWith(CommandLine::helpText());
    if (line.version) return finishWith("pellam " PELLAM_VERSION "\n");
    // Other separators than those meant would give other values.
    if (const Failure failure = noSettingsFile(line)) {
        std::fprintf(stderr, "%s\n", failure.text().c_str());
        return kFailed;
    }
    if (line.prints.empty() && line.charts.empty()) return BatchCommand(line).run();

    // Text on paper needs fonts, and those an application object; no display is needed.
    qInstallMessageHandler(keepQtQuiet);
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    int count = 1;
    char name[] = "pellam";
    char* arguments[] = {name, nullptr};
    const QGuiApplication application(count, arguments);
    return BatchCommand(line).run();
}

} // namespace pellam
