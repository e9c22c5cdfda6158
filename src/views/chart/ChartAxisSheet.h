#pragma once

#include "views/chart/CChartAxis.h"

#include <QDialog>

namespace pellam {

class TrendOperations;

/// The property sheet "Chart Axis" with its one page; OK takes the rows that were edited over onto
/// the chart.
class ChartAxisSheet : public QDialog {
    Q_OBJECT
  public:
    /// The chart must outlive the sheet.
    ChartAxisSheet(TrendOperations& trend, char decimalSeparator, QWidget* parent = nullptr);

    [[nodiscard]] CChartAxis& page() const { return *m_page; }

    /// OK: takes the page over, unless something on it can't be.
    void accept() override;

  private:
    TrendOperations& m_trend;
    CChartAxis* m_page;
};

/// Fills the page from the chart.
void fillAxisPage(CChartAxis& page, const TrendOperations& trend);

/// Sets one axis, 1 to 6, as the page has it: its range goes ten spans beyond what is shown. This
/// program's rule: a logarithmic axis starts at 1, and its upper bounds lose their sign.
void applyAxis(TrendOperations& trend, int axis, const CChartAxis::Axis& values);

} // namespace pellam
