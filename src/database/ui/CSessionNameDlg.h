#pragma once

#include "database/odbc/CTime.h"
#include "database/sessions/SessionLists.h"
#include "database/sessions/SessionRequest.h"
#include "database/ui/WindowCall.h"

#include <QDialog>

#include <functional>
#include <string>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QDateEdit;
class QDateTimeEdit;
class QFormLayout;
class QLabel;
class QPushButton;
class QTimeEdit;
QT_END_NAMESPACE

namespace pellam {

class MessageSink;
class PickBox;

/// The dialog "Session Name": chooses a data source, a session stored in it, and what to take of
/// it. The lists are read from the database as they are opened.
class CSessionNameDlg : public QDialog {
    Q_OBJECT

  public:
    struct Context {
        std::function<QString()> lastDsn;                 ///< the data source used last
        std::function<void(const QString& name)> saveDsn; ///< called as soon as one is picked
        MessageSink& messages;
        DataSourceLogin& login;
        int standardBias = 0; ///< seconds, see TimeCorrections
        int daylightBias = 0;
    };

    explicit CSessionNameDlg(Context context, QWidget* parent = nullptr);
    ~CSessionNameDlg() override;

    /// The choice, texts as they stand in the fields; after OK.
    [[nodiscard]] const SessionRequest& request() const { return m_request; }

  public Q_SLOTS:
    /// Sets the pickers and the data sources.
    void OnInitDialog();
    /// Lists the data sources.
    void OnFillDSN1();
    void OnSelchangeDatabase();
    /// Takes the typed session. What was picked for another one gives way to "*".
    void OnEditSession();
    void OnSelchangeSession();
    void OnSelchangeSite();
    /// Takes the typed site, for the lists of jobs and schedules.
    void OnEditSite();
    void OnSelchangeJob();
    void OnSelchangeSchedule();
    /// List sessions, sites, jobs and schedules, each followed by the lists that depend on it. A
    /// failure is shown; false when there was one or the person stopped the question.
    bool OnDropdownSession();
    bool OnDropdownSite();
    bool OnDropdownJob();
    bool OnDropdownSchedule();
    /// Sets the pickers from the earliest and the latest reading; tells of no failure.
    void OnCheck1();
    void OnOK();

    void accept() override { OnOK(); }

    /// Stops the question that runs, if any; else closes.
    void reject() override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void build();
    void buildFields(QFormLayout* form);
    void buildRange(QFormLayout* form);
    QWidget* buildFoot();
    PickBox* addField(QFormLayout* form, const QString& label, const QString& name);
    void connectFields();
    /// Asks the data source; false when there was a failure, which is shown, or it was stopped.
    template <class Question>
    bool fill(PickBox* box, const QString& what, Question question);
    [[nodiscard]] SessionLists lists();
    void startQuestion(const QString& what);
    void endQuestion();
    void setPickers(QDateEdit* date, QTimeEdit* time, const CTime& moment);
    void rememberDsn();
    [[nodiscard]] QString lastDsn() const;
    void takeFields();
    void showReady();

    Context m_context;
    WindowCall m_call;
    SessionRequest m_request; ///< as the lists are read by; OnOK takes the fields anew

    PickBox* m_dsn = nullptr;
    PickBox* m_session = nullptr;
    PickBox* m_site = nullptr;
    PickBox* m_job = nullptr;
    PickBox* m_schedule = nullptr;
    PickBox* m_label = nullptr;
    QDateEdit* m_startDate = nullptr;
    QTimeEdit* m_startTime = nullptr;
    QDateEdit* m_endDate = nullptr;
    QTimeEdit* m_endTime = nullptr;
    QCheckBox* m_fromData = nullptr;
    QLabel* m_status = nullptr;
    QPushButton* m_ok = nullptr;
};

} // namespace pellam
