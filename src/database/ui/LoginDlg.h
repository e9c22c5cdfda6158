#pragma once

#include "database/odbc/DataSourceLogin.h"

#include <QDialog>

QT_BEGIN_NAMESPACE
class QLineEdit;
QT_END_NAMESPACE

namespace pellam {

/// Asks for the user and password of a data source that wants them. They are kept nowhere.
class LoginDlg : public QDialog {
    Q_OBJECT

  public:
    explicit LoginDlg(const DataSourceLogin::Question& question, QWidget* parent = nullptr);

    /// Shows the dialog; nothing when it was cancelled.
    [[nodiscard]] std::optional<Login> ask();

  private:
    QLineEdit* m_user;
    QLineEdit* m_password;
};

} // namespace pellam
