#pragma once

#include "ui/dialogs/AnswerStore.h"

namespace pellam {

class SettingsStore;

/// Keeps the answers of message boxes in the settings, under a key of their own.
class SettingsAnswers : public AnswerStore {
  public:
    static inline const auto kKey = QStringLiteral("Software/Tarnholt/Pellam/XMessageBox");

    explicit SettingsAnswers(SettingsStore& settings) : m_settings(settings) {}

    std::optional<int> load(const QString& id) override;
    void store(const QString& id, int answer) override;
    void clear() override;

  private:
    SettingsStore& m_settings;
};

} // namespace pellam
