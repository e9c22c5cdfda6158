#pragma once

#include "base/Failure.h"
#include "delimited/layout/LayoutWishes.h"
#include "delimited/layout/TextLayout.h"
#include "delimited/sample/TextSample.h"

#include <string>

namespace pellam {

struct InternationalSettings;

/// Finds the layout of a text file of measurements by its first and last 64 KiB.
class LayoutDetector {
  public:
    /// `expected` is the separator that a file of this name has; `settings` (which outlive the
    /// detector) decide where a date may be read in two ways.
    LayoutDetector(char expected, const InternationalSettings& settings)
        : m_expected(expected),
          m_settings(settings) {}

    /// The layout of a file; for one that can't be read the failure says why and the layout is the
    /// plain one.
    [[nodiscard]] TextLayout detect(const std::string& path, Failure& failure,
                                    const LayoutWishes& wishes = {}) const;

    [[nodiscard]] TextLayout detect(const TextSample& sample,
                                    const LayoutWishes& wishes = {}) const;

  private:
    char m_expected;
    const InternationalSettings& m_settings;
};

} // namespace pellam
