#include "database/ui/LoginDlg.h"

#include "base/Utf8.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace pellam {

namespace {

QString shown(const std::string& bytes) {
    return QString::fromStdString(toUtf8(bytes));
}

QLabel* paragraph(const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumWidth(360);
    return label;
}

} // namespace

LoginDlg::LoginDlg(const DataSourceLogin::Question& question, QWidget* parent)
    : QDialog(parent),
      m_user(new QLineEdit(shown(question.user))),
      m_password(new QLineEdit) {
    setWindowTitle(tr("Log In"));
    m_password->setEchoMode(QLineEdit::Password);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(14);
    column->addWidget(
        paragraph(tr("The data source %1 asks for a user and a password. Pellam forgets them when "
                     "it is closed.")
                      .arg(shown(question.source))));
    auto* form = new QFormLayout;
    form->addRow(tr("&User:"), m_user);
    form->addRow(tr("&Password:"), m_password);
    column->addLayout(form);
    if (question.again) column->addWidget(paragraph(shown(question.reason)));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("&Log In"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addStretch(1);
    column->addWidget(buttons);
    (m_user->text().isEmpty() ? m_user : m_password)->setFocus();
}

std::optional<Login> LoginDlg::ask() {
    // Whoever waits for the database has put up the busy cursor.
    QApplication::setOverrideCursor(Qt::ArrowCursor);
    const bool given = exec() == Accepted;
    QApplication::restoreOverrideCursor();
    if (!given) return std::nullopt;
    return Login{m_user->text().toStdString(), m_password->text().toStdString()};
}

} // namespace pellam
