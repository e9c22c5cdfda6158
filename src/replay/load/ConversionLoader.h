#pragma once

#include "replay/load/FileLoader.h"
#include "replay/outcome/LoadOutcome.h"

#include <string>

namespace pellam {

/// Loads binary data files and tagged downloads: converts one to delimited text in the save folder,
/// under the file's own name with the extension ".csv" (see ConversionTarget), and loads that.
/// Without a save folder nothing is loaded, after a message; nor when the file can't be read, the
/// text not be written, or the conversion was stopped.
class ConversionLoader {
  public:
    explicit ConversionLoader(const LoadContext& context);

    /// Of a damaged file what can be read is loaded; a message and the outcome tell of the rest.
    LoadOutcome loadBinary(const std::string& path);
    LoadOutcome loadTagged(const std::string& path);

  private:
    /// The first name of the text; empty without a save folder, after a message.
    [[nodiscard]] std::string target(const std::string& path) const;
    LoadOutcome loadText(const std::string& text, const std::string& path, LoadOutcome::Kind kind);
    void markLastRow();

    const LoadContext& m_context;
    InternationalSettings m_settings; ///< that the text is written and read with
};

} // namespace pellam
