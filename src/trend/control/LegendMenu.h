#pragma once

#include <QMenu>
#include <vector>

namespace pellam {

class CTrend;

/// Shows and hides the curves for which a chart's legend has no room.
class LegendMenu : public QMenu {
    Q_OBJECT
  public:
    LegendMenu(CTrend& trend, const std::vector<int>& curves);
};

} // namespace pellam
