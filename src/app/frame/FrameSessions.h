#pragma once

#include "database/odbc/DataSourceLogin.h"

#include <QObject>

#include <optional>

class QWidget;

namespace pellam {

class CGridView;
class CLumasetApp;
class FrameLoader;
class MessageSink;
struct LoadOutcome;
struct SessionRequest;
struct TimeCorrections;

/// Brings sessions from databases onto the grid page: the dialog, and the load by way of a
/// temporary replay file.
class FrameSessions : public QObject {
    Q_OBJECT

  public:
    struct Context {
        QWidget* window;
        CLumasetApp& app;
        CGridView& page;
        FrameLoader& loader;
        const TimeCorrections& corrections;
        MessageSink& messages;
    };

    explicit FrameSessions(const Context& context);

    /// Shows the session dialog; nothing when it was cancelled.
    [[nodiscard]] std::optional<SessionRequest> ask();

    /// Empties the grid and loads the session into it. Nothing happens while another load runs.
    LoadOutcome load(const SessionRequest& request);

    /// What a session is called on the screen.
    [[nodiscard]] static QString title(const SessionRequest& request);
    /// A file of the session's name in the save folder, as exports propose it.
    [[nodiscard]] QString exportPath(const SessionRequest& request) const;

  private:
    LoadOutcome fetch(const SessionRequest& request);
    [[nodiscard]] std::optional<Login> askForLogin(const DataSourceLogin::Question& question);

    Context m_context;
    DataSourceLogin m_login; ///< keeps what was entered while the window lives
};

} // namespace pellam
