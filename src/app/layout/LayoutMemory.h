#pragma once

#include "delimited/layout/LayoutWishes.h"
#include "delimited/layout/TextLayout.h"
#include "delimited/sample/TextSample.h"

#include <QString>

#include <vector>

namespace pellam {

class SettingsStore;

/// What was asked for of the layouts of text files, kept in the settings by the text of the files'
/// headings: a later file with the same headings, even on other lines, is read in the same way.
class LayoutMemory {
  public:
    static constexpr std::size_t kMaximum = 50; ///< files whose headings are kept, newest first

    /// `settings` outlive the memory.
    explicit LayoutMemory(SettingsStore& settings) : m_settings(settings) {}

    /// What was asked for of files with headings that this one has, with its own line numbers;
    /// none where nothing is known.
    [[nodiscard]] LayoutWishes recall(const TextSample& sample) const;

    /// Keeps what was asked for of a file; what was kept for it before is forgotten. False when
    /// nothing is kept: there are no wishes, or the layout has no headings to know the file by.
    bool remember(const TextSample& sample, const TextLayout& layout, const LayoutWishes& wishes);

    /// Whether a layout has headings to know its file by.
    [[nodiscard]] static bool canRemember(const TextSample& sample, const TextLayout& layout);

  private:
    struct Entry {
        QString headings; ///< hash of their lines
        std::int64_t line = 0;
        int lines = 0;
        LayoutWishes wishes;
    };

    [[nodiscard]] std::vector<Entry> stored() const;
    void store(const std::vector<Entry>& entries);

    SettingsStore& m_settings;
};

} // namespace pellam
