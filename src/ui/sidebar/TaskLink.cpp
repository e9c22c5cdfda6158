#include "ui/sidebar/TaskLink.h"

#include <QAction>

namespace pellam {

namespace {

/// A menu text without its mnemonic mark, its shortcut after a tab and its trailing dots.
QString plainMenuText(const QString& menuText) {
    QString plain;
    const QString text = menuText.section(u'\t', 0, 0);
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && i + 1 < text.size()) ++i;
        plain += text[i];
    }
    if (plain.endsWith(u"...")) plain.chop(3);
    return plain;
}

} // namespace

TaskLink::TaskLink(QAction* action, const QString& text, QWidget* parent)
    : TaskRow(parent),
      m_action(action),
      m_text(text) {
    followAction();
    connect(action, &QAction::changed, this, &TaskLink::followAction);
    connect(action, &QAction::visibleChanged, this, &TaskLink::followAction);
    connect(action, &QObject::destroyed, this, &QObject::deleteLater);
    connect(this, &QAbstractButton::clicked, action, [action] { action->trigger(); });
}

void TaskLink::followAction() {
    if (!m_action) return;
    const QString name = m_text.isEmpty() ? plainMenuText(m_action->text()) : m_text;
    setPlainText(name);
    setIcon(m_action->icon());
    setCheckable(m_action->isCheckable());
    setChecked(m_action->isChecked());
    setEnabled(m_action->isEnabled());
    setVisible(m_action->isVisible());
    setStatusTip(m_action->statusTip());
    const QString keys = m_action->shortcut().toString(QKeySequence::NativeText);
    setToolTip(keys.isEmpty() ? QString() : QStringLiteral("%1 (%2)").arg(name, keys));
}

} // namespace pellam
