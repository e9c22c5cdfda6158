#include "views/chart/PaperGuard.h"

#include "trend/control/TrendOperations.h"

namespace pellam {

PaperGuard::PaperGuard(TrendOperations& trend, bool lock) : m_trend(trend), m_lock(lock) {
    if (m_lock) m_trend.SetLockUpdate(1);
    m_trend.SaveTrend();
    m_trend.SetCurveButtons(0);
    m_trend.SetFollowModeButton(0);
    m_trend.SetDockingScales(0);
    m_trend.SetBackColor(Qt::white);
    m_trend.SetTrendBackColor(Qt::white);
}

PaperGuard::~PaperGuard() {
    m_trend.RestoreTrend();
    if (m_lock) m_trend.SetLockUpdate(0);
}

} // namespace pellam
