#pragma once

#include <QMessageBox>
#include <QString>

namespace pellam {

/// The icon that a message asks for by its first word: "Warning:", "Attention:" (both warning),
/// "Information:"; anything else is an error report.
QMessageBox::Icon messageIcon(const QString& text);

/// Shows a message box with the text as it stands and an OK button; returns when it is closed.
void showMessage(QWidget* parent, const QString& text);

} // namespace pellam
