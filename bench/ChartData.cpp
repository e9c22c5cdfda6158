#include "ChartData.h"

#include "base/LargePages.h"

#include <cmath>
#include <cstdint>

namespace pellam::bench {
namespace {

// A small generator of its own, so that ten million values are made at once.
class Noise {
  public:
    double next() {
        m_state = m_state * 6364136223846793005u + 1442695040888963407u;
        return static_cast<double>(m_state >> 40) / double(1 << 24) - 0.5;
    }

  private:
    std::uint64_t m_state = 12345;
};

} // namespace

TrendChart waveChart(std::size_t curves, std::size_t points) {
    const std::size_t rows = points / curves;
    std::vector<double> seconds;
    reserveLarge(seconds, rows);
    seconds.resize(rows);
    for (std::size_t i = 0; i < rows; ++i)
        seconds[i] = 1.7e9 + static_cast<double>(i) / 10;
    const auto times = TrendTimes::create(std::move(seconds));
    TrendChart chart;
    Noise noise;
    for (std::size_t k = 0; k < curves; ++k) {
        std::vector<double> values;
        reserveLarge(values, rows);
        values.resize(rows);
        const double waves = 2 + static_cast<double>(k % 5);
        for (std::size_t i = 0; i < rows; ++i) {
            const double part = static_cast<double>(i) / static_cast<double>(rows);
            values[i] = 20 * std::sin(6.283 * (waves * part + static_cast<double>(k) / 12)) +
                        3 * noise.next();
        }
        TrendCurve& curve = chart.curve(static_cast<int>(k));
        curve.setText(QStringLiteral("Channel %1").arg(k + 1));
        curve.style().relatedScale = 1 + static_cast<int>(k % 6);
        curve.setPoints(times, std::move(values));
        TrendScale& scale = *chart.scale(curve.style().relatedScale);
        scale.enabled = true;
        scale.text = QStringLiteral("Unit");
        scale.actualMin = -40;
        scale.actualMax = 40;
    }
    zoomTo(chart, 1);
    return chart;
}

void zoomTo(TrendChart& chart, double part) {
    const TrendTimes& times = *chart.curves.front().times();
    const double middle = (times.first() + times.last()) / 2;
    const double half = (times.last() - times.first()) / 2 * part;
    chart.state.timeMin = middle - half;
    chart.state.timeMax = middle + half;
}

} // namespace pellam::bench
