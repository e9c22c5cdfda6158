#include "app/dialogs/SettingsAnswers.h"

#include "settings/SettingsStore.h"

#include <QMessageBox>

namespace pellam {

static QString keyOf(const QString& id) {
    return SettingsAnswers::kKey + u'/' + id;
}

std::optional<int> SettingsAnswers::load(const QString& id) {
    const auto text = m_settings.value(keyOf(id));
    bool isNumber = false;
    const int answer = text.value_or(QString()).toInt(&isNumber);
    return isNumber ? std::optional(answer) : std::nullopt;
}

void SettingsAnswers::store(const QString& id, int answer) {
    // A "No" kept for good would make a command do nothing, without a word.
    if (answer != QMessageBox::No) m_settings.setValue(keyOf(id), QString::number(answer));
}

void SettingsAnswers::clear() {
    m_settings.deleteKey(kKey);
}

} // namespace pellam
