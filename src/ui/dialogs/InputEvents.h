#pragma once

#include <QEvent>

namespace pellam {

/// True for what a person does with mouse, keyboard, pen or touch.
[[nodiscard]] bool isInput(QEvent::Type type);

} // namespace pellam
