#pragma once

#include <QString>

namespace pellam {

/// A shown range as it stands in fields of a dialog.
struct BoundTexts {
    QString min;
    QString max;
};

/// Both bounds as a person would write them, with '.' before decimals: exactly where that takes no
/// more than six digits, else with those by which the range can be told from its neighbours on the
/// screen.
BoundTexts boundTexts(double min, double max, bool logarithmic);

} // namespace pellam
