#include "app/frame/FrameLoader.h"

#include "app/dialogs/COptionTreeDlg.h"
#include "app/frame/CLumasetApp.h"
#include "app/layout/LayoutMemory.h"
#include "replay/load/FileLoader.h"
#include "replay/outcome/LoadOutcome.h"
#include "settings/ProfileKeys.h"
#include "settings/SettingsStore.h"
#include "ui/dialogs/CConnectionStatus.h"
#include "views/grid/CGridView.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QScopedValueRollback>

namespace pellam {

namespace {

/// The channel dialog, made only when a large file asks for it.
class DialogChooser : public ChannelChooser {
  public:
    DialogChooser(QWidget* window, CConnectionStatus& progress)
        : m_window(window),
          m_progress(progress) {}

    std::vector<std::string> choose(const std::vector<std::string>& offered) override {
        m_progress.hide(); // it comes back with the next progress
        COptionTreeDlg dialog(m_window);
        return dialog.choose(offered);
    }

  private:
    QWidget* m_window;
    CConnectionStatus& m_progress;
};

/// Filters of the open dialog: the text shown, then in brackets of its own what it lets through.
QStringList openFilters() {
    const auto shown = QStringLiteral("*.dlr;*.dbr;*.dlx;*.sig;*.dx?;*.dbd;*.csv");
    auto patterns = shown;
    patterns.replace(u';', u' ');
    // Some desktops' own dialogs tell capitals apart, and older systems wrote names in capitals.
    return {FrameLoader::tr("Data Files (%1)").arg(shown) +
                QStringLiteral(" (%1 %2)").arg(patterns, patterns.toUpper()),
            FrameLoader::tr("Text Files (%1)").arg(QStringLiteral("*.txt")) +
                QStringLiteral(" (*.txt *.TXT)"),
            FrameLoader::tr("All Files") + QStringLiteral(" (*)")};
}

} // namespace

FrameLoader::FrameLoader(const Context& context) : QObject(context.window), m_context(context) {}

QString FrameLoader::askForFile(bool anyName) {
    auto& settings = m_context.app.settings();
    auto start = settings.GetProfileString(profile::kSection, profile::kLastReplay);
    if (start.isEmpty())
        start = settings.GetProfileString(profile::kSection, profile::kReplayFolder);
    start.truncate(start.lastIndexOf(QDir::separator()) + 1);

    QFileDialog dialog(m_context.window, tr("Select Replay File"), start);
    dialog.setFileMode(QFileDialog::ExistingFile);
    const QStringList filters = openFilters();
    dialog.setNameFilters(filters);
    if (anyName) dialog.selectNameFilter(filters.last());
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setDefaultSuffix(QStringLiteral("dlr"));
    if (dialog.exec() != QDialog::Accepted) return {};
    const auto path = dialog.selectedFiles().value(0);
    settings.WriteProfileString(profile::kSection, profile::kLastReplay, path);
    return path;
}

LoadOutcome FrameLoader::load(const QString& path, const std::optional<LayoutWishes>& text) {
    return onPage(QFileInfo(path).fileName(), [&] { return read(path, text); });
}

LoadOutcome FrameLoader::onPage(const QString& name, const std::function<LoadOutcome()>& work) {
    if (isBusy()) return {};
    const QScopedValueRollback busy(m_loading, true);
    auto& page = m_context.page;
    page.beginLoad();
    auto outcome = work();
    page.setFileName(outcome.loaded ? name : QString());
    page.endLoad(outcome.largeFile, false);
    return outcome;
}

LoadOutcome FrameLoader::read(const QString& path, const std::optional<LayoutWishes>& text) {
    return read(QFile::encodeName(path).toStdString(), false, text);
}

LoadOutcome FrameLoader::readSession(const std::string& path) {
    return read(path, true, {});
}

LoadOutcome FrameLoader::read(const std::string& path, bool session,
                              const std::optional<LayoutWishes>& text) {
    DialogChooser chooser(m_context.window, progress());
    const auto saveFolder = [this] {
        return QFile::encodeName(m_context.app.storedSaveFolder()).toStdString();
    };
    const LayoutMemory memory(m_context.app.settings());
    FileLoader loader(
        {m_context.page.data(), m_context.international, m_context.messages, progress(), chooser,
         false, saveFolder, m_context.openPreferences, session, text.value_or(LayoutWishes()),
         [&memory](const TextSample& sample) { return memory.recall(sample); }, text.has_value()});
    return loader.load(path);
}

CConnectionStatus& FrameLoader::progress() {
    if (!m_progress) m_progress = new CConnectionStatus(m_context.window);
    return *m_progress;
}

bool FrameLoader::isBusy() const {
    return m_loading || (m_progress && m_progress->isRunning());
}

void FrameLoader::stop() {
    if (m_progress && m_progress->isRunning()) m_progress->requestAbort();
}

} // namespace pellam
