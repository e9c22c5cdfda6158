#pragma once

#include "delimited/layout/LayoutWishes.h"

#include <string>
#include <string_view>

namespace pellam {

/// The values of the options that tell how a text file is laid out. Each function puts a value
/// into the wishes; the result is what it should have been ("needs ..."), empty when it is right.
struct LayoutOptions {
    static std::string separator(std::string_view value, LayoutWishes& wishes);
    static std::string decimal(std::string_view value, LayoutWishes& wishes);
    static std::string headingsLine(std::string_view value, LayoutWishes& wishes);
    static std::string unitsLine(std::string_view value, LayoutWishes& wishes);
    static std::string dataLine(std::string_view value, LayoutWishes& wishes);
    static std::string timeColumns(std::string_view value, LayoutWishes& wishes);
    static std::string timeFormat(std::string_view value, LayoutWishes& wishes);
    static std::string missing(std::string_view value, LayoutWishes& wishes);
};

} // namespace pellam
