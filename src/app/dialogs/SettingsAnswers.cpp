#include "app/dialogs/SettingsAnswers.h"

#include "settings/SettingsStore.h"

#include <QMessageBox>

#include <string>

namespace pellam {

static std::string keyOf(const QString& id) {
    return std::string(SettingsAnswers::kKey) + '/' + id.toStdString();
}

std::optional<int> SettingsAnswers::load(const QString& id) {
    const auto text = m_settings.value(keyOf(id));
    bool isNumber = false;
    const int answer = text ? QString::fromStdString(*text).toInt(&isNumber) : 0;
    return isNumber ? std::optional(answer) : std::nullopt;
}

void SettingsAnswers::store(const QString& id, int answer) {
    // A "No" kept for good would make a command do nothing, without a word.
    if (answer != QMessageBox::No) m_settings.setValue(keyOf(id), std::to_string(answer));
}

void SettingsAnswers::clear() {
    m_settings.deleteKey(kKey);
}

} // namespace pellam
