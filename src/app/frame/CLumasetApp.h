#pragma once

#include "base/InternationalSettings.h"

#include <QObject>
#include <QString>

#include <memory>

namespace pellam {

class CMainFrame;
class HelpWindow;
class SettingsStore;

/// The application object: starts the system, reads and writes its settings, and opens the file
/// that the command line names.
class CLumasetApp : public QObject {
    Q_OBJECT

  public:
    /// The store must outlive this object.
    explicit CLumasetApp(SettingsStore& settings);
    ~CLumasetApp() override;

    /// What happens once the window is painted.
    enum class First { LoadFile, AskForFile, AskForSession };

    /// Starts up: the save folder of a first start, the main window, and then `file` when it is not
    /// empty, or the dialog for a file or a session. Returns as soon as the window is shown; the
    /// rest comes from the event loop.
    bool InitInstance(const QString& file, First first = First::LoadFile);

    /// Opens the help window, or brings it to the front.
    void OnMyHelp();

    /// What the program remembers between runs.
    [[nodiscard]] SettingsStore& settings() const { return m_settings; }

    /// The folder for converted and dropped files: the stored one, or where none is stored, that of
    /// a first start, which is made.
    [[nodiscard]] QString saveFolder() const;
    /// The folder as the preferences have it; empty where none is stored.
    [[nodiscard]] QString storedSaveFolder() const;
    void storeSaveFolder(const QString& folder);

    /// How this user writes numbers, dates and lists: the "[intl]" settings over the locale's.
    [[nodiscard]] InternationalSettings international() const;

    /// The main window; null before InitInstance().
    [[nodiscard]] CMainFrame* mainFrame() const { return m_frame.get(); }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void chooseSaveFolder();
    void begin();

    SettingsStore& m_settings;
    std::unique_ptr<CMainFrame> m_frame;
    QString m_file; ///< named by the command line
    First m_first = First::LoadFile;
    HelpWindow* m_help = nullptr; ///< a child of the frame
};

} // namespace pellam
