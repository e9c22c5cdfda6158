#include "ui/dialogs/WindowMessages.h"

#include "ui/dialogs/ShowMessage.h"

#include <QApplication>

namespace pellam {

void WindowMessages::show(std::string_view text) {
    // A box over the dialog that is open, so that it cannot hide behind it.
    auto* dialog = QApplication::activeModalWidget();
    showMessage(dialog ? dialog : m_window,
                QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

} // namespace pellam
