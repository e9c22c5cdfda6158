#pragma once

#include "replay/load/FileLoader.h"
#include "replay/load/LoadOutcome.h"

#include <string>

namespace pellam {

/// Loads binary data files: converts one to comma-separated text in the save folder, under the
/// file's own name with the extension ".csv", and loads that.
class BinaryLoader {
  public:
    explicit BinaryLoader(const LoadContext& context) : m_context(context) {}

    /// Without a save folder nothing is loaded, after a message; nor when the file can't be read,
    /// the text not be written, or the conversion was stopped. Of a damaged file what came before
    /// the damage is loaded.
    LoadOutcome load(const std::string& path);

  private:
    [[nodiscard]] std::string saveFolder() const;
    [[nodiscard]] static std::string titleOf(const std::string& path);

    const LoadContext& m_context;
};

} // namespace pellam
