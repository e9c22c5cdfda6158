#pragma once

#include "views/series/ClockChoice.h"

#include <QString>

#include <optional>

namespace pellam {

class GridData;
class SettingsStore;

/// Which clock was chosen for the charts of files, kept in the settings by the files' headings.
class ClockMemory {
  public:
    static constexpr int kMaximum = 50; ///< headings that are kept, newest first

    /// `settings` outlive the memory.
    explicit ClockMemory(SettingsStore& settings) : m_settings(settings) {}

    /// What was chosen for files with the headings of a loaded one; nothing when nothing was.
    [[nodiscard]] std::optional<ClockChoice> recall(const GridData& grid) const;

    void remember(const GridData& grid, ClockChoice clock);

  private:
    SettingsStore& m_settings;
};

} // namespace pellam
