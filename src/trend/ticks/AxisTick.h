#pragma once

#include <QString>

namespace pellam {

/// One mark on an axis. A mark without a label is a minor one.
struct AxisTick {
    double value = 0;
    bool major = false;
    QString label;
    QString
        context; ///< second line of a time label: the date (or minute, or year), where it changes
};

} // namespace pellam
