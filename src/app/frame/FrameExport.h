#pragma once

#include "export/GridWriter.h"
#include "ui/dialogs/DesktopOpener.h"

#include <QObject>

#include <functional>
#include <optional>

class QWidget;

namespace pellam {

class MessageMemory;
class MessageSink;
class ProgressSink;

/// What the export commands need from the window.
struct ExportContext {
    QWidget* window;
    const GridData& grid;
    MessageSink& messages;
    MessageMemory& memory; ///< for questions that may be answered for good
    char listSeparator;
    std::function<ProgressSink&()> progress;
    std::function<QString()> saveFolder;
    std::function<void()> openPreferences; ///< asked when no save folder is set
    std::function<QString()> loadedFile;   ///< path of the file on the grid; may be empty
};

/// The dialogs of the export commands, and the writing of the grid to the file that was chosen.
class FrameExport : public QObject {
    Q_OBJECT

  public:
    explicit FrameExport(ExportContext context);

    /// Most rows that an external spreadsheet takes without a question.
    static constexpr int kSpreadsheetRows = 65536;

    /// Asks for a file and writes the grid to it, by the file's extension.
    void exportData();
    /// Writes the grid by the extension of `path`, compared with its case: "csv" or "txt"; any
    /// other writes nothing.
    void writeByExtension(const QString& path);
    /// Writes the grid; false when a failure was shown or the person stopped it. The file that the
    /// grid was loaded from is refused.
    bool write(const QString& path, GridWriter::Form form);
    /// Exports a CSV file and opens it with the desktop's program for such files.
    void viewInSpreadsheet();

  Q_SIGNALS:
    /// The checked channels stand in a file now.
    void written();
    /// A remark for the status bar.
    void notice(const QString& text);

  private:
    /// What one save dialog shows.
    struct Question {
        QStringList filters; ///< "CSV Files (*.csv)"
        QString folder;
        QString name;
    };

    std::optional<QString> askForFile(const Question& question);
    std::optional<QString> runDialog(const Question& question);

    ExportContext m_context;
    DesktopOpener m_opener;
};

} // namespace pellam
