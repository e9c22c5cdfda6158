#pragma once

#include "replay/LoadOutcome.h"
#include "replay/SessionLoader.h"

#include <string>

namespace pellam {

/// Loads binary data files: converts one to comma-separated text in the save folder, under the
/// file's own name with the extension ".csv", and loads that.
class BinaryLoader {
  public:
    explicit BinaryLoader(const LoadContext& context) : m_context(context) {}

    /// Without a save folder nothing is loaded, after a message. A conversion that was stopped
    /// loads nothing either; one that failed leaves it to the loader to find what is there.
    LoadOutcome load(const std::string& path);

  private:
    [[nodiscard]] std::string saveFolder() const;
    [[nodiscard]] static std::string titleOf(const std::string& path);

    const LoadContext& m_context;
};

} // namespace pellam
