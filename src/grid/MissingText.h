#pragma once

#include <optional>
#include <string>

namespace pellam {

/// A text that stands for no value in the channels of a grid.
struct MissingText {
    std::string text; ///< as the file has it, decimals too
    /// Of a number: every cell of this value stands for none, however it is written.
    std::optional<double> value;
};

} // namespace pellam
