#include "ui/dialogs/ShowMessage.h"

#include <QCoreApplication>

namespace pellam {

QMessageBox::Icon messageIcon(const QString& text) {
    if (text.startsWith(u"Warning:") || text.startsWith(u"Attention:")) return QMessageBox::Warning;
    if (text.startsWith(u"Information:")) return QMessageBox::Information;
    return QMessageBox::Critical;
}

void showMessage(QWidget* parent, const QString& text) {
    QMessageBox box(messageIcon(text), QCoreApplication::applicationName(), text, QMessageBox::Ok,
                    parent);
    // File names and file contents come in messages: they are text, never markup.
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

} // namespace pellam
