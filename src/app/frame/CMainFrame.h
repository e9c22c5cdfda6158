#pragma once

#include "base/InternationalSettings.h"
#include "grid/GridData.h"
#include "replay/outcome/FileFacts.h"
#include "replay/outcome/LoadOutcome.h"
#include "replay/time/TimeCorrections.h"
#include "settings/SettingsStore.h"
#include "ui/dialogs/WindowMessages.h"

#include <QMainWindow>

#include <memory>
#include <optional>

class QStackedWidget;

namespace pellam {

class CGridView;
class CLumasetApp;
class ClockMemory;
class CTrendView;
class CommandSet;
class FrameActions;
class FrameExport;
class FrameLayout;
class FrameLoader;
class FramePreview;
class FramePrinting;
class FrameSessions;
class FrameSidebar;
class FrameStatusBar;
class LayoutChoice;
class MessageMemory;
class MyCug;
class PreviewPane;
class RecentFiles;
class SettingsAnswers;
class TabPages;

/// The main window: the two pages, the task sidebar, menus, toolbar and status bar. It carries out
/// the commands that neither page has alone and holds what the pages share; loading, exporting and
/// printing are done elsewhere.
class CMainFrame : public QMainWindow {
    Q_OBJECT

  public:
    static constexpr int kGridPage = 0;
    static constexpr int kTrendPage = 1;

    explicit CMainFrame(CLumasetApp& app);
    ~CMainFrame() override;

    /// The grid control of the "Grid" page.
    [[nodiscard]] MyCug* Grid() const;

    /// The store of all loaded values.
    [[nodiscard]] GridData& data() { return m_data; }

    /// Opens a file by its extension; an empty path asks for one. Ignored while another load or an
    /// export runs.
    void OnLoadSessionFromFile(const QString& path);
    /// Loads a replay file into the grid; the same as opening it, without touching recent files.
    LoadOutcome ReadReplayFile(const QString& path);
    /// Asks for a text file and how it is laid out, and opens it so.
    void OnOpenWithLayout();
    /// Groups the channels on axes by their units.
    void SortAxisByUnits();

    void ExportData();
    void ExportCSV(const QString& path);
    void ExportTXT(const QString& path);

    /// These two kinds are accepted and write nothing.
    void ExportXLS(const QString& /*path*/) {}

    void ExportXML(const QString& /*path*/) {}

    /// Converts a tagged text download to a .csv file beside it: 1, or 0 after a file error, which
    /// is shown.
    int ConvertFile(const QString& path);
    void OnFileViewin();

    /// Reads how this user writes numbers, dates and lists.
    void SetInternational();

    [[nodiscard]] const InternationalSettings& international() const { return m_international; }

    /// The time corrections, in seconds; see TimeCorrections.
    [[nodiscard]] int GetStandardBias() const { return m_corrections.standardBias; }

    [[nodiscard]] int GetDaylightBias() const { return m_corrections.daylightBias; }

    [[nodiscard]] int GetDTOffset() const { return TimeCorrections::dtOffset; }

    void OnLoadLoadreplayfile();
    /// Asks for a session stored in a database and loads it; cancelled, the data stays.
    void OnLoadFromDatabase();
    void OnFilePreferences();
    /// Prints the page in front.
    void OnFilePrint();
    /// Shows what is known of the loaded file. `marked`: the facts to begin with, see
    /// PropertiesDialog.
    void OnFileProperties(const QString& marked = {});
    void OnEditSelectAll();
    void OnEditClearAll();
    void OnViewDatagrid();
    void OnViewTrendchart();
    /// Takes numbers that stand for no value as values, or leaves them out again.
    void OnViewMissing();
    /// Hides the sidebar or shows it at its width of 225, and remembers which.
    void OnViewSidebar();
    /// Hides the toolbar or shows it, and remembers which.
    void OnViewToolbar();
    /// Lays the sidebar out at the stored width.
    void ViewSidebar();
    /// Brings back all questions that were answered for good.
    void OnClearXMessage();

    void OnLoadTrend() {}

    void OnHelp();
    void OnAppAbout();

    /// Opens the first of the files; the others are ignored.
    void OnDropFiles(const QStringList& paths);
    /// Brings enabled states, check marks and the options group in line with the window's state.
    void OnIdleUpdateCmdUI();
    /// Shows or ends the print preview inside the window.
    void OnSetPreviewMode(bool on);

    /// Whether the chart's page is in front, else the grid's is.
    [[nodiscard]] bool chartInFront() const;

    [[nodiscard]] CGridView& gridPage() const { return *m_gridView; }

    [[nodiscard]] CTrendView& chartPage() const { return *m_trendView; }

    [[nodiscard]] const FrameLayout& frameLayout() const { return *m_layout; }

    [[nodiscard]] FrameActions& actions() const { return *m_actions; }

    [[nodiscard]] FrameSidebar& sidebar() const { return *m_sidebar; }

    [[nodiscard]] FrameStatusBar& statusFields() const { return *m_status; }

    [[nodiscard]] TabPages& pages() const { return *m_pages; }

    [[nodiscard]] RecentFiles& recentFiles() const { return *m_recent; }

    /// The preview while it is on, else null.
    [[nodiscard]] PreviewPane* preview() const;

    /// Work that the first painted window need not wait for.
    void finishStartUp();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    static constexpr int kNoticeTime = 6000; ///< milliseconds that a remark stays

    void createPages();
    void createCommands();
    void createClient();
    void createHelpers();
    void connectPages();
    void connectDrops();
    void remark(const QString& text);
    void showTitle();
    /// Asks before changed cells are lost; false when they are not to be.
    bool mayLoseEdits();
    void tellOfSettings(SettingsStore::Notice notice, const QString& path);
    void openLater(const QString& path);
    void openFile(const QString& path, const std::optional<LayoutWishes>& text = {});
    void showLoaded(const QString& path, const LoadOutcome& outcome, const QString& session = {});

    CLumasetApp& m_app;
    InternationalSettings m_international;
    TimeCorrections m_corrections;
    GridData m_data;
    WindowMessages m_messages{this};
    std::unique_ptr<SettingsAnswers> m_answers;
    std::unique_ptr<MessageMemory> m_memory;
    std::unique_ptr<FrameLayout> m_layout;

    CommandSet* m_commands = nullptr; ///< those of neither page alone
    FrameActions* m_actions = nullptr;
    FrameSidebar* m_sidebar = nullptr;
    FrameStatusBar* m_status = nullptr;
    FrameLoader* m_loader = nullptr;
    FrameSessions* m_sessions = nullptr;
    LayoutChoice* m_layouts = nullptr;
    FrameExport* m_export = nullptr;
    FramePrinting* m_printing = nullptr;
    FramePreview* m_preview = nullptr;
    RecentFiles* m_recent = nullptr;
    QStackedWidget* m_stack = nullptr;
    TabPages* m_pages = nullptr;
    CGridView* m_gridView = nullptr;
    std::unique_ptr<ClockMemory> m_clocks;
    CTrendView* m_trendView = nullptr;

    /// Path of the file on the grid, of a session where an export of it would be; empty when none.
    QString m_file;
    QString m_title;        ///< name of what is on the grid; empty when nothing
    LoadOutcome m_outcome;  ///< of what is on the grid
    StoredSession m_stored; ///< where that came from when it was no file
    bool m_closeWhenLoaded = false;
};

} // namespace pellam
