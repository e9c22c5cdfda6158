#pragma once

#include <QString>

#include <string_view>

namespace pellam {

/// A text of the store for the screen: UTF-8, or Windows-1252 where it is not well-formed.
QString screenText(std::string_view stored);

} // namespace pellam
