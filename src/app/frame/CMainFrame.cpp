#include "app/frame/CMainFrame.h"

#include "app/dialogs/AboutBox.h"
#include "app/dialogs/CPreferences.h"
#include "app/dialogs/PropertiesDialog.h"
#include "app/dialogs/SettingsAnswers.h"
#include "app/frame/CLumasetApp.h"
#include "app/frame/FrameActions.h"
#include "app/frame/FrameCommands.h"
#include "app/frame/FrameExport.h"
#include "app/frame/FrameLayout.h"
#include "app/frame/FrameLoader.h"
#include "app/frame/FramePreview.h"
#include "app/frame/FrameSessions.h"
#include "app/frame/FrameSidebar.h"
#include "app/frame/FrameStatusBar.h"
#include "app/frame/PageLink.h"
#include "app/frame/RecentFiles.h"
#include "app/layout/LayoutChoice.h"
#include "app/print/FramePrinting.h"
#include "database/sessions/SessionRequest.h"
#include "drop/CMyDropTarget.h"
#include "logger/TaggedDownload.h"
#include "replay/load/AxisGrouping.h"
#include "ui/commands/CommandSet.h"
#include "ui/dialogs/CConnectionStatus.h"
#include "ui/dialogs/MessageMemory.h"
#include "ui/dialogs/TabPages.h"
#include "ui/icons/IconSet.h"
#include "views/chart/CTrendView.h"
#include "views/chart/ClockMemory.h"
#include "views/grid/CGridView.h"
#include "views/grid/GridClipboard.h"
#include "views/grid/MyCug.h"
#include "views/sheet/GridModel.h"

#include <QAbstractEventDispatcher>
#include <QActionGroup>
#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>

#include <clocale>
#include <ctime>

namespace pellam {

CMainFrame::CMainFrame(CLumasetApp& app)
    : m_app(app),
      m_data((SetInternational(), m_international.decimalSeparator)),
      m_answers(std::make_unique<SettingsAnswers>(app.settings())),
      m_memory(std::make_unique<MessageMemory>(*m_answers)) {
    setWindowTitle(QStringLiteral("Pellam"));
    createPages();
    createCommands();
    m_recent = new RecentFiles(app.settings(), m_actions->recentMenu());
    m_status = new FrameStatusBar(statusBar());
    createClient();
    m_layout = std::make_unique<FrameLayout>(*this, app.settings(), *m_sidebar,
                                             *m_actions->buildToolbar());
    createHelpers();
    connectPages();
    connectDrops();
    m_layout->restoreWindow();
    ViewSidebar();
    OnViewDatagrid();
    OnIdleUpdateCmdUI();
}

CMainFrame::~CMainFrame() {
    // The pages read the store until they are gone, so they go first, and quietly.
    m_pages->disconnect(this);
    m_app.settings().setListener({});
    delete takeCentralWidget();
}

void CMainFrame::createPages() {
    m_clocks = std::make_unique<ClockMemory>(m_app.settings());
    m_gridView = new CGridView(m_data, m_international);
    m_trendView =
        new CTrendView({.grid = m_data,
                        .international = m_international,
                        .clearMark = [this] { Grid()->gridModel().setChanged(false); },
                        .messages = m_messages,
                        .progress = [this]() -> ProgressSink& { return m_loader->progress(); },
                        .saveFolder = [this] { return m_app.saveFolder(); },
                        .clocks = m_clocks.get()});
}

void CMainFrame::createCommands() {
    m_commands = new CommandSet(this);
    addFrameCommands(*m_commands, *this);
    // One page is always in front: choosing it again must not clear its mark.
    auto* pages = new QActionGroup(this);
    for (const auto page : {Command::DataGrid, Command::TrendChart})
        pages->addAction(m_commands->action(page));
    m_actions =
        new FrameActions(this, {m_commands, &m_gridView->commands(), &m_trendView->commands()});
    m_actions->buildMenus();
}

void CMainFrame::createClient() {
    m_pages = new TabPages;
    m_pages->addPage(m_gridView, tr("Grid"), IconSet::icon(IconName::Grid));
    m_pages->addPage(m_trendView, tr("Trend"), IconSet::icon(IconName::Chart));
    m_stack = new QStackedWidget;
    m_stack->addWidget(m_pages);

    auto* client = new QWidget;
    m_sidebar = new FrameSidebar(*m_actions, client);
    auto* row = new QHBoxLayout(client);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(m_sidebar);
    row->addWidget(m_stack, 1);
    setCentralWidget(client);
}

void CMainFrame::createHelpers() {
    m_printing = new FramePrinting(this, *m_gridView, *m_trendView);
    m_preview = new FramePreview(m_stack, *m_printing, *m_actions);
    connect(m_preview, &FramePreview::closeWanted, this, [this] { OnSetPreviewMode(false); });
    m_loader = new FrameLoader(
        {this, m_app, *m_gridView, m_international, m_messages, [this] { OnFilePreferences(); }});
    m_layouts = new LayoutChoice(
        {this, m_app.settings(), *m_gridView, m_international, m_messages,
         [this](const QString& path, const LayoutWishes& wishes) { openFile(path, wishes); }});
    m_sessions =
        new FrameSessions({this, m_app, *m_gridView, *m_loader, m_corrections, m_messages});
    m_export =
        new FrameExport({.window = this,
                         .grid = m_data,
                         .messages = m_messages,
                         .memory = *m_memory,
                         .listSeparator = m_international.listSeparator,
                         .progress = [this]() -> ProgressSink& { return m_loader->progress(); },
                         .saveFolder = [this] { return m_app.storedSaveFolder(); },
                         .openPreferences = [this] { OnFilePreferences(); },
                         .loadedFile = [this] { return m_file; }});
    connect(m_export, &FrameExport::notice, this, &CMainFrame::remark);
    connect(m_export, &FrameExport::written, m_gridView, &CGridView::exported);
}

bool CMainFrame::chartInFront() const {
    return m_pages->activePage() == kTrendPage;
}

void CMainFrame::connectPages() {
    connect(m_gridView, &CGridView::statisticsChanged, m_status, &FrameStatusBar::showSelection);
    connect(m_gridView, &CGridView::edited, this, &CMainFrame::showTitle);
    connect(m_gridView, &CGridView::currentCellTold, m_status, &FrameStatusBar::showCell);
    connect(m_gridView, &CGridView::notice, this, &CMainFrame::remark);
    connect(m_status, &FrameStatusBar::detailsWanted, this,
            [this] { OnFileProperties(QStringLiteral("passed over")); });
    // Queued: opening a file rebuilds the menu whose item was chosen.
    connect(m_recent, &RecentFiles::chosen, this, &CMainFrame::openLater);
    connect(m_pages, &TabPages::pageActivated, this, &CMainFrame::OnIdleUpdateCmdUI);
    connect(m_trendView, &CTrendView::missingSwitched, this, &CMainFrame::OnViewMissing);
    connect(m_trendView, &CTrendView::stateChanged, this, &CMainFrame::OnIdleUpdateCmdUI);
    auto* link = new PageLink(
        {*m_pages, kTrendPage, *m_gridView, *m_trendView, [this] { return m_loader->isBusy(); }},
        this);
    connect(link, &PageLink::notice, this, &CMainFrame::remark);
    connect(m_trendView, &CTrendView::rebuilt, this, [this] {
        if (m_closeWhenLoaded) QTimer::singleShot(0, this, &CMainFrame::close);
    });
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &CMainFrame::OnIdleUpdateCmdUI);
}

void CMainFrame::connectDrops() {
    for (auto* target :
         {new CMyDropTarget(this), &m_gridView->dropTarget(), &m_trendView->dropTarget()}) {
        target->setContext(
            {.messages = m_messages,
             .progress = [this]() -> ProgressSink& { return m_loader->progress(); },
             .saveFolder = [this] { return m_app.saveFolder(); },
             .ready =
                 [this] { return !m_loader->isBusy() && !QApplication::activeModalWidget(); }});
        connect(target, &CMyDropTarget::fileDropped, this,
                [this](const QString& path) { OnDropFiles({path}); });
        connect(target, &CMyDropTarget::notice, this, &CMainFrame::remark);
    }
}

void CMainFrame::finishStartUp() {
    setWindowIcon(IconSet::applicationIcon());
    m_gridView->grid().clipboard().watch();
    m_app.settings().setListener([this](SettingsStore::Notice notice, const QString& path) {
        // Later, as this comes from the midst of what wrote the setting.
        QTimer::singleShot(0, this, [this, notice, path] { tellOfSettings(notice, path); });
    });
}

void CMainFrame::tellOfSettings(SettingsStore::Notice notice, const QString& path) {
    // While work is under way no dialog but its own takes keys and clicks.
    if (m_loader->isBusy()) {
        constexpr int kAgain = 50; // ms
        QTimer::singleShot(kAgain, this, [this, notice, path] { tellOfSettings(notice, path); });
        return;
    }
    if (notice == SettingsStore::Notice::KeptBeside)
        return remark(tr("The settings file had lines that get lost: it is kept as %1").arg(path));
    const auto text = tr("Warning: The settings can not be written to %1. "
                         "What you change is kept until Pellam is closed.");
    m_messages.show(text.arg(path).toStdString());
}

PreviewPane* CMainFrame::preview() const {
    return m_preview->pane();
}

MyCug* CMainFrame::Grid() const {
    return &m_gridView->grid();
}

void CMainFrame::SetInternational() {
    m_international = m_app.international();
    m_corrections = TimeCorrections::fromZone(std::time(nullptr));
    // A language that the system does not know leaves the locale as it is.
    std::setlocale(LC_TIME, m_international.language.c_str());
}

// --- Loading

void CMainFrame::OnLoadLoadreplayfile() {
    OnLoadSessionFromFile({});
}

void CMainFrame::OnLoadSessionFromFile(const QString& path) {
    if (m_loader->isBusy()) return;
    OnViewDatagrid();
    auto file = path;
    // Quotes come from command lines of other systems; a name that really has them is left alone.
    if (!QFileInfo::exists(file)) file.remove(u'"');
    if (file.isEmpty()) file = m_loader->askForFile();
    if (!file.isEmpty()) openFile(file);
}

void CMainFrame::OnOpenWithLayout() {
    if (m_loader->isBusy()) return;
    OnViewDatagrid();
    const auto file = m_loader->askForFile(true);
    if (!file.isEmpty()) m_layouts->openWith(file);
}

void CMainFrame::openFile(const QString& path, const std::optional<LayoutWishes>& text) {
    if (m_loader->isBusy() || !mayLoseEdits()) return;
    const bool asText = text || m_recent->isText(path);
    const auto outcome =
        m_loader->load(path, asText ? std::optional(text.value_or(LayoutWishes())) : std::nullopt);
    showLoaded(path, outcome);
    if (outcome.loaded)
        m_recent->add(path, asText);
    else if (!QFileInfo::exists(path))
        m_recent->remove(path);
    if (m_closeWhenLoaded) close();
}

LoadOutcome CMainFrame::ReadReplayFile(const QString& path) {
    auto outcome = m_loader->load(path);
    m_stored = {};
    showLoaded(path, outcome);
    return outcome;
}

void CMainFrame::OnLoadFromDatabase() {
    if (m_loader->isBusy()) return;
    OnViewDatagrid();
    const auto request = m_sessions->ask();
    if (request && mayLoseEdits()) {
        const auto outcome = m_sessions->load(*request);
        m_stored = {request->dataSource, request->session};
        showLoaded(m_sessions->exportPath(*request), outcome, FrameSessions::title(*request));
    }
    Grid()->clearSelection();
    if (m_closeWhenLoaded) close();
}

void CMainFrame::showLoaded(const QString& path, const LoadOutcome& outcome,
                            const QString& session) {
    m_file = outcome.loaded ? path : QString();
    m_outcome = outcome;
    m_trendView->setFileName(m_gridView->fileName());
    m_layouts->showLoaded(path, outcome);
    m_status->showLoad(outcome, session);
    const auto name = session.isEmpty() ? QFileInfo(path).fileName() : session;
    m_title = outcome.loaded ? name : QString();
    showTitle();
    m_gridView->setFocus();
    OnIdleUpdateCmdUI();
}

void CMainFrame::showTitle() {
    const auto changed = m_gridView->hasEdits() ? tr(" (modified)") : QString();
    setWindowTitle(m_title.isEmpty() ? QStringLiteral("Pellam") + changed
                                     : tr("%1 - Pellam").arg(m_title + changed));
}

bool CMainFrame::mayLoseEdits() {
    while (m_gridView->hasEditsToLose()) {
        QMessageBox box(QMessageBox::Warning, QCoreApplication::applicationName(),
                        tr("Cells were changed on the grid. The file itself is never written to: "
                           "what is not exported is lost."),
                        QMessageBox::Discard | QMessageBox::Cancel, this);
        box.button(QMessageBox::Discard)->setText(tr("&Discard Changes"));
        box.setDefaultButton(QMessageBox::Cancel);
        QPushButton* exporting = nullptr;
        if (m_data.rowCount() > 0) {
            exporting = box.addButton(tr("&Export..."), QMessageBox::AcceptRole);
            box.setInformativeText(
                tr("An export holds the channels that are checked in their headings."));
        }
        box.exec();
        if (box.clickedButton() == box.button(QMessageBox::Discard)) return true;
        if (exporting == nullptr || box.clickedButton() != exporting) return false;
        ExportData();
    }
    return true;
}

void CMainFrame::remark(const QString& text) {
    statusBar()->showMessage(text, kNoticeTime);
}

void CMainFrame::openLater(const QString& path) {
    QTimer::singleShot(0, this, [this, path] { OnLoadSessionFromFile(path); });
}

void CMainFrame::OnDropFiles(const QStringList& paths) {
    if (!paths.value(0).isEmpty()) openLater(paths[0]);
}

void CMainFrame::SortAxisByUnits() {
    sortAxisByUnits(m_data);
    m_gridView->refresh();
}

// --- Export, preferences

void CMainFrame::ExportData() {
    m_export->exportData();
}

void CMainFrame::ExportCSV(const QString& path) {
    m_export->write(path, GridWriter::Form::Csv);
}

void CMainFrame::ExportTXT(const QString& path) {
    m_export->write(path, GridWriter::Form::Txt);
}

int CMainFrame::ConvertFile(const QString& path) {
    std::string output;
    const auto failure = convertTaggedDownloadBeside(QFile::encodeName(path).toStdString(), output);
    if (!failure) return 1;
    m_messages.show(failure.text());
    return 0;
}

void CMainFrame::OnFileViewin() {
    m_export->viewInSpreadsheet();
}

void CMainFrame::OnFilePreferences() {
    CPreferences([this] { return m_app.storedSaveFolder(); },
                 [this](const QString& folder) { m_app.storeSaveFolder(folder); }, this)
        .exec();
}

void CMainFrame::OnFilePrint() {
    chartInFront() ? m_printing->printChart() : m_printing->printGrid(m_loader->progress());
}

void CMainFrame::OnHelp() {
    m_app.OnMyHelp();
}

void CMainFrame::OnAppAbout() {
    AboutBox(IconSet::applicationIcon(), this).exec();
}

void CMainFrame::OnFileProperties(const QString& marked) {
    PropertiesDialog(fileFacts(m_outcome, m_data, m_stored), marked, this).exec();
}

void CMainFrame::OnClearXMessage() {
    m_memory->clear();
    remark(tr("All questions will be asked again"));
}

// --- Pages and view

void CMainFrame::OnEditSelectAll() {
    Grid()->gridModel().setAllCharted(true);
}

void CMainFrame::OnEditClearAll() {
    Grid()->gridModel().setAllCharted(false);
}

void CMainFrame::OnViewDatagrid() {
    OnSetPreviewMode(false);
    m_pages->activate(kGridPage);
}

void CMainFrame::OnViewMissing() {
    m_data.setMissingAsNumbers(!m_data.missingAsNumbers());
    if (chartInFront()) m_trendView->keepTimes();
    Grid()->gridModel().setChanged(true);
    m_gridView->refreshStatistics();
    remark(m_data.missingAsNumbers() ? tr("Missing values count as numbers")
                                     : tr("Missing values are left out of chart and figures"));
}

void CMainFrame::OnViewTrendchart() {
    OnSetPreviewMode(false);
    m_pages->activate(kTrendPage);
}

void CMainFrame::OnViewSidebar() {
    m_layout->toggleSidebar();
    ViewSidebar();
    OnIdleUpdateCmdUI();
}

void CMainFrame::ViewSidebar() {
    m_layout->layOut(preview() != nullptr);
}

void CMainFrame::OnViewToolbar() {
    m_layout->toggleToolbar();
    ViewSidebar();
}

void CMainFrame::OnSetPreviewMode(bool on) {
    if (on == (preview() != nullptr)) return;
    setUpdatesEnabled(false);
    if (on) {
        m_preview->begin(chartInFront());
        if (preview()) m_trendView->OnBeginPrinting(true);
    } else {
        m_preview->end(m_pages);
        m_trendView->OnEndPrinting(true);
        m_pages->activate(m_pages->activePage());
    }
    ViewSidebar();
    OnIdleUpdateCmdUI();
    setUpdatesEnabled(true);
}

void CMainFrame::OnIdleUpdateCmdUI() {
    const bool gridPage = m_pages->activePage() == kGridPage;
    m_sidebar->showOptions(gridPage ? FrameSidebar::Options::Grid : FrameSidebar::Options::Trend);
    const bool preview = this->preview() != nullptr;
    m_gridView->commands().setActive(gridPage && !preview);
    m_trendView->commands().setActive(!gridPage && !preview);
    m_commands->refresh();
}

// --- Events

void CMainFrame::closeEvent(QCloseEvent* event) {
    if (m_loader->isBusy()) {
        m_loader->stop();
        m_closeWhenLoaded = true;
        event->ignore();
        return;
    }
    m_closeWhenLoaded = false;
    if (!mayLoseEdits()) {
        event->ignore();
        return;
    }
    m_app.settings().setListener({}); // nobody is there any more to read it
    m_layout->saveWindow();
    event->accept();
}

} // namespace pellam
