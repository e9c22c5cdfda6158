#pragma once

#include "base/Failure.h"
#include "delimited/layout/LayoutWishes.h"
#include "delimited/layout/TextLayout.h"
#include "delimited/sample/TextSample.h"
#include "grid/GridData.h"

#include <QString>
#include <QTemporaryFile>

#include <string>

namespace pellam {

struct InternationalSettings;

/// What a layout makes of the beginning of a text file. The file itself is read once, at most its
/// first and last 64 KiB.
class LayoutPreview {
  public:
    static constexpr Row kRows = 100; ///< at most so many lines of data are shown

    /// `settings` outlive the preview.
    LayoutPreview(const QString& path, const InternationalSettings& settings);

    /// Why the file can't be read; nothing when it can.
    [[nodiscard]] const Failure& failure() const { return m_failure; }

    [[nodiscard]] const TextSample& sample() const { return m_sample; }

    /// Finds the layout once more, as far as the wishes leave it open, and reads the rows by it.
    void follow(const LayoutWishes& wishes);

    /// Of the last follow().
    [[nodiscard]] const TextLayout& layout() const { return m_layout; }

    /// The first rows as they would be loaded; empty when the text is no table.
    [[nodiscard]] const GridData& table() const { return m_table; }

    /// What the time of the first row is read as; empty when it can't be read.
    [[nodiscard]] std::string firstTime() const;

  private:
    const InternationalSettings& m_settings;
    char m_expected;
    TextSample m_sample;
    TextLayout m_layout;
    Failure m_failure;
    GridData m_table;
    QTemporaryFile m_part; ///< the sample's head, for the loader to read
};

} // namespace pellam
