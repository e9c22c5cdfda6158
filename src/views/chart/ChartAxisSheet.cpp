#include "views/chart/ChartAxisSheet.h"

#include "trend/control/TrendOperations.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QTabWidget>

#include <cmath>

namespace pellam {

ChartAxisSheet::ChartAxisSheet(TrendOperations& trend, char decimalSeparator, QWidget* parent)
    : QDialog(parent),
      m_trend(trend),
      m_page(new CChartAxis(decimalSeparator)) {
    setWindowTitle(tr("Chart Axis"));
    auto* tabs = new QTabWidget;
    tabs->addTab(m_page, tr("Axis Properties"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &ChartAxisSheet::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ChartAxisSheet::reject);
    auto* box = new QVBoxLayout(this);
    box->addWidget(tabs);
    box->addWidget(buttons);
    fillAxisPage(*m_page, trend);
    m_page->setFocus();
}

void ChartAxisSheet::accept() {
    if (!m_page->validate()) return;
    m_trend.SetLockUpdate(1);
    for (int axis = 1; axis <= trendScaleCount; ++axis) {
        const CChartAxis::Axis& given = m_page->given(axis);
        const auto values = m_page->axis(axis);
        if (!values || *values == given) continue;
        CChartAxis::Axis renamed = given;
        renamed.title = values->title;
        *values == renamed ? m_trend.SetYScText(axis, values->title)
                           : applyAxis(m_trend, axis, *values);
    }
    m_trend.SetLockUpdate(0);
    QDialog::accept();
}

void fillAxisPage(CChartAxis& page, const TrendOperations& trend) {
    for (int axis = 1; axis <= trendScaleCount; ++axis) {
        page.setAxis(axis,
                     {trend.GetYScText(axis), trend.GetYScLogarithmic(axis),
                      trend.GetYScActualRangeMin(axis), trend.GetYScActualRangeMax(axis)},
                     trend.GetYScEnabled(axis) != 0);
    }
}

void applyAxis(TrendOperations& trend, int axis, const CChartAxis::Axis& values) {
    const double span = std::abs(values.maximum - values.minimum);
    trend.SetYScText(axis, values.title);
    trend.SetYScRangeMin(axis, values.minimum - 10 * span);
    trend.SetYScRangeMax(axis, values.maximum + 10 * span);
    trend.SetYScActualRangeMin(axis, values.minimum);
    trend.SetYScActualRangeMax(axis, values.maximum);
    if (values.logarithmic != 0) {
        trend.SetYScRangeMin(axis, 1.0);
        trend.SetYScActualRangeMin(axis, 1.0);
        trend.SetYScDataRangeMin(axis, 1.0);
        trend.SetYScRangeMax(axis, std::abs(trend.GetYScRangeMax(axis)));
        trend.SetYScActualRangeMax(axis, std::abs(trend.GetYScActualRangeMax(axis)));
        trend.SetYScDataRangeMax(axis, std::abs(trend.GetYScDataRangeMax(axis)));
    }
    trend.SetYScLogarithmic(axis, values.logarithmic);
}

} // namespace pellam
