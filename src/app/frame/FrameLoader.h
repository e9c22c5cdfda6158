#pragma once

#include "delimited/layout/LayoutWishes.h"

#include <QObject>

#include <functional>
#include <optional>
#include <string>

class QWidget;

namespace pellam {

class CConnectionStatus;
class CGridView;
class CLumasetApp;
class MessageSink;
struct InternationalSettings;
struct LoadOutcome;

/// Brings files onto the grid page: the open dialog, the load with its progress window, and the
/// page before and after it. One load at a time.
class FrameLoader : public QObject {
    Q_OBJECT

  public:
    struct Context {
        QWidget* window;
        CLumasetApp& app;
        CGridView& page;
        const InternationalSettings& international;
        MessageSink& messages;
        /// Opens the preferences, for a save folder that a conversion needs.
        std::function<void()> openPreferences = {};
    };

    explicit FrameLoader(const Context& context);

    /// Shows the open dialog in the folder of the last choice and remembers the new one; empty when
    /// it was cancelled. With `anyName` files of all names are listed.
    [[nodiscard]] QString askForFile(bool anyName = false);

    /// Loads a file into the grid by its extension. While a load or an export runs nothing happens
    /// and the outcome is an empty one. With `text`, even one without wishes, it is delimited text
    /// of that layout whatever its extension; else text is read as was asked for of its like.
    LoadOutcome load(const QString& path, const std::optional<LayoutWishes>& text = {});

    /// Runs `work`, which fills the store, with the page stopped before and shown after it; the
    /// page gets `name`. Refused as load() is. For `work`, read() loads a file and readSession()
    /// the replay text of a database session.
    LoadOutcome onPage(const QString& name, const std::function<LoadOutcome()>& work);
    LoadOutcome read(const QString& path, const std::optional<LayoutWishes>& text = {});
    LoadOutcome readSession(const std::string& path);

    /// The progress window, shared by all long operations of the main window.
    CConnectionStatus& progress();
    /// True while a load or another long operation runs.
    [[nodiscard]] bool isBusy() const;
    /// Asks the running operation to stop; harmless when none runs.
    void stop();

  private:
    LoadOutcome read(const std::string& path, bool session,
                     const std::optional<LayoutWishes>& text);

    Context m_context;
    CConnectionStatus* m_progress = nullptr;
    bool m_loading = false;
};

} // namespace pellam
