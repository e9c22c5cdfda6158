#include "trend/control/LegendMenu.h"

#include "trend/control/CTrend.h"

namespace pellam {

LegendMenu::LegendMenu(CTrend& trend, const std::vector<int>& curves) : QMenu(&trend) {
    for (const int curve : curves) {
        // An ampersand in a name marks no key.
        QAction* action = addAction(trend.GetCurveText(curve).replace(u'&', QStringLiteral("&&")));
        action->setCheckable(true);
        action->setChecked(trend.GetCurveVisible(curve) != 0);
        connect(action, &QAction::toggled, &trend,
                [&trend, curve](bool on) { trend.SetCurveVisible(curve, on ? 1 : 0); });
    }
}

} // namespace pellam
