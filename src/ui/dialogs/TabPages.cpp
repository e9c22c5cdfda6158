#include "ui/dialogs/TabPages.h"

#include <QShortcut>

namespace pellam {

TabPages::TabPages(QWidget* parent) : QTabWidget(parent) {
    setDocumentMode(true);
    setTabPosition(QTabWidget::South);
    setUsesScrollButtons(true);
    const auto key = [this](const QKeySequence& sequence, int by) {
        auto* shortcut = new QShortcut(sequence, this);
        connect(shortcut, &QShortcut::activated, this, [this, by] { step(by); });
    };
    key(QKeySequence(Qt::CTRL | Qt::Key_Tab), 1);
    key(QKeySequence(Qt::CTRL | Qt::Key_PageDown), 1);
    key(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), -1);
    key(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), -1);
    key(QKeySequence(Qt::CTRL | Qt::Key_PageUp), -1);
    connect(this, &QTabWidget::currentChanged, this, [this](int page) {
        if (page >= 0) Q_EMIT pageActivated(page);
    });
}

int TabPages::addPage(QWidget* page, const QString& title, const QIcon& icon) {
    return addTab(page, icon, title);
}

void TabPages::activate(int page) {
    if (page < 0 || page >= count()) return;
    setCurrentIndex(page);
    widget(page)->setFocus(Qt::OtherFocusReason);
}

void TabPages::step(int by) {
    if (count() > 0) activate((currentIndex() + by + count()) % count());
}

} // namespace pellam
