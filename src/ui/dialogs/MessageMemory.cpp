#include "ui/dialogs/MessageMemory.h"

#include <QCheckBox>
#include <QCoreApplication>

namespace pellam {

QMessageBox::StandardButton MessageMemory::question(QWidget* parent, const QString& id,
                                                    const QString& text,
                                                    QMessageBox::StandardButtons buttons,
                                                    QMessageBox::Icon icon) {
    if (const auto kept = m_store.load(id)) {
        const auto answer = static_cast<QMessageBox::StandardButton>(*kept);
        if (answer != QMessageBox::NoButton && buttons.testFlag(answer)) return answer;
    }
    QMessageBox box(icon, QCoreApplication::applicationName(), text, buttons, parent);
    box.setTextFormat(Qt::PlainText);
    auto* dontAsk = new QCheckBox(QMessageBox::tr("&Don't ask me again"), &box);
    box.setCheckBox(dontAsk);
    const auto answer = static_cast<QMessageBox::StandardButton>(box.exec());
    // A kept Cancel would make the command do nothing for ever, without a word.
    if (dontAsk->isChecked() && answer != QMessageBox::Cancel)
        m_store.store(id, static_cast<int>(answer));
    return answer;
}

} // namespace pellam
