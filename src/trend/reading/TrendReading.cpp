#include "trend/reading/TrendReading.h"

#include "trend/layout/TrendLayout.h"
#include "trend/reading/ReadoutContent.h"
#include "trend/reading/TrendMarks.h"
#include "trend/ticks/DecimalTicks.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>

namespace pellam {

namespace {

constexpr int kMostTimesLookedAt = 256;
constexpr int kComputedDigits = 10;
const QString kNone = QStringLiteral("–");

QString tr(const char* text) {
    return QCoreApplication::translate("pellam::TrendReading", text);
}

// Fraction digits that a time needs, at least those that are known to be needed.
int digitsOf(double time, int digits, int most) {
    // Doubles around now are a quarter of a microsecond apart.
    const double slack = 0.3 * std::pow(10.0, -most);
    const double fraction = time - std::floor(time);
    double unit = std::pow(10.0, digits);
    while (digits < most && std::abs(fraction - std::round(fraction * unit) / unit) > slack)
        unit = std::pow(10.0, ++digits);
    return digits;
}

double rounded(double value) {
    return QString::number(value, 'g', kComputedDigits).toDouble();
}

QString meanText(const CurveStatistics& between) {
    const double range = between.max - between.min;
    if (!(range > 0)) return TrendReading::valueText(between.mean);
    // Small numbers stand here as they do beside it.
    const double finest = range / 1e4;
    const bool plain = finest > 1e-12 && std::abs(between.mean) < 1e15;
    const int decimals = std::max(0, static_cast<int>(std::ceil(-std::log10(finest))));
    return plain ? QString::number(between.mean, 'f', decimals)
                 : DecimalTicks::text(between.mean, finest);
}

} // namespace

TrendReading::TrendReading(const TrendChart& chart, const TimeTicks& times)
    : m_chart(chart),
      m_times(times) {}

void TrendReading::setUnit(int curve, const QString& unit) {
    if (curve < 0 || curve >= trendCurvePool) return;
    const auto index = static_cast<std::size_t>(curve);
    if (m_units.size() <= index) m_units.resize(index + 1);
    m_units[index] = unit;
}

QString TrendReading::unit(int curve) const {
    const auto index = static_cast<std::size_t>(curve);
    if (index < m_units.size() && !m_units[index].isNull()) return m_units[index];
    const TrendScale* scale = m_chart.scale(m_chart.curves[index].style().relatedScale);
    return scale ? scale->text : QString();
}

int TrendReading::findDigits() const {
    int digits = 0;
    for (const int curve : drawnCurves()) {
        const TrendTimes& times = *m_chart.curves[static_cast<std::size_t>(curve)].times();
        const std::size_t stride = std::max<std::size_t>(1, times.size() / kMostTimesLookedAt);
        for (std::size_t i = 0; i < times.size(); i += stride)
            digits = digitsOf(times[i], digits, m_chart.state.xAxis.mostDigits());
    }
    return digits;
}

// Only some of the times were looked at: one that is shown and needs more digits has them.
void TrendReading::noteSample(const std::optional<CurveSample>& sample) const {
    const int most = m_chart.state.xAxis.mostDigits();
    if (sample) m_foundDigits = digitsOf(sample->time, timeDigits(), most);
}

void TrendReading::noteTimes(const TrendMarks& marks) const {
    if (m_digits >= 0) return;
    for (const int curve : drawnCurves()) {
        if (marks.crosshair) noteSample(sample(curve, *marks.crosshair));
        for (const auto& cursor : marks.cursors)
            if (cursor) noteSample(sample(curve, *cursor));
    }
}

int TrendReading::timeDigits() const {
    if (m_digits >= 0) return std::min(m_digits, 6);
    if (!m_foundDigits) m_foundDigits = findDigits();
    return *m_foundDigits;
}

QString TrendReading::timeText(double time) const {
    return m_chart.state.numbers(axis().fullText(time, timeDigits()));
}

QString TrendReading::spanText(double seconds) const {
    return m_chart.state.numbers(axis().spanText(seconds, timeDigits()));
}

QString TrendReading::valueText(double value) {
    if (value == 0) return QStringLiteral("0");
    if (QString::number(value, 'g', 15).toDouble() != value) value = rounded(value);
    const double size = std::abs(value);
    const char form = size >= 1e-5 && size < 1e15 ? 'f' : 'g';
    return QString::number(value, form, QLocale::FloatingPointShortest);
}

QString TrendReading::number(double value) const {
    return m_chart.state.numbers(valueText(value));
}

std::vector<int> TrendReading::drawnCurves() const {
    std::vector<int> drawn;
    for (std::size_t i = 0; i < m_chart.curves.size(); ++i)
        if (m_chart.drawn(m_chart.curves[i])) drawn.push_back(static_cast<int>(i));
    return drawn;
}

std::optional<CurveSample> TrendReading::sample(int curve, double time) const {
    return CurveReader(m_chart.curves[static_cast<std::size_t>(curve)]).atOrBefore(time);
}

QString TrendReading::valueAt(int curve, double time) const {
    const auto found = sample(curve, time);
    if (!found) return tr("no value");
    const QString text = unit(curve);
    return text.isEmpty() ? number(found->value) : number(found->value) + u' ' + text;
}

void TrendReading::addTimes(ReadoutContent& content, const TrendMarks& marks) const {
    if (!marks.measuring()) return;
    for (std::size_t i = 0; i < 2; ++i)
        if (marks.cursors[i])
            content.lines +=
                (i == 0 ? tr("A:  %1") : tr("B:  %1")).arg(timeText(*marks.cursors[i]));
    if (marks.cursors[0] && marks.cursors[1])
        content.lines += tr("B − A:  %1").arg(spanText(*marks.cursors[1] - *marks.cursors[0]));
}

const CurveStatistics& TrendReading::Between::of(int curve, double from, double to,
                                                 const TrendChart& chart) {
    if (from != m_from || to != m_to) m_found.clear();
    m_from = from;
    m_to = to;
    const auto known = m_found.find(curve);
    if (known != m_found.end()) return known->second;
    const CurveReader reader(chart.curves[static_cast<std::size_t>(curve)]);
    return m_found[curve] = reader.statistics(from, to);
}

void TrendReading::addBetween(QStringList& cells, int curve, double a, double b) const {
    const auto atA = sample(curve, a);
    const auto atB = sample(curve, b);
    cells += atA && atB ? number(rounded(atB->value - atA->value)) : kNone;
    const CurveStatistics& between = m_between.of(curve, a, b, m_chart);
    const bool any = between.count > 0;
    cells += any ? number(between.min) : kNone;
    cells += any ? number(between.max) : kNone;
    cells += any ? m_chart.state.numbers(meanText(between)) : kNone;
    cells += QString::number(between.count);
}

QStringList TrendReading::cells(int curve, const TrendMarks& marks, double heading) const {
    QStringList cells{m_chart.curves[static_cast<std::size_t>(curve)].text().trimmed()};
    QString ownTime;
    if (marks.crosshair) {
        const auto found = sample(curve, *marks.crosshair);
        cells += found ? number(found->value) : kNone;
        if (found && found->time != heading) ownTime = timeText(found->time);
    }
    for (const auto& cursor : marks.cursors) {
        if (!cursor) continue;
        const auto found = sample(curve, *cursor);
        cells += found ? number(found->value) : kNone;
    }
    if (marks.cursors[0] && marks.cursors[1])
        addBetween(cells, curve, *marks.cursors[0], *marks.cursors[1]);
    cells += unit(curve);
    cells += ownTime;
    return cells;
}

ReadoutContent TrendReading::table(const TrendMarks& marks) const {
    ReadoutContent content;
    if (!marks.crosshair && !marks.measuring()) return content;
    noteTimes(marks);
    const std::vector<int> curves = drawnCurves();
    double heading = -1e300;
    if (marks.crosshair) {
        for (const int curve : curves)
            if (const auto found = sample(curve, *marks.crosshair))
                heading = std::max(heading, found->time);
        content.lines += timeText(heading == -1e300 ? *marks.crosshair : heading);
    }
    addTimes(content, marks);
    if (marks.measuring()) {
        content.titles += QString();
        if (marks.crosshair) content.titles += tr("Value");
        if (marks.cursors[0]) content.titles += tr("A");
        if (marks.cursors[1]) content.titles += tr("B");
        if (marks.cursors[0] && marks.cursors[1])
            content.titles += {tr("B − A"), tr("Min"), tr("Max"), tr("Mean"), tr("Count")};
    }
    for (const int curve : curves) {
        const CurveStyle& style = m_chart.curves[static_cast<std::size_t>(curve)].style();
        content.rows.push_back({style.colour, cells(curve, marks, heading), style.dash});
        content.firstText = content.rows.back().cells.size() - 2;
    }
    return content;
}

ReadoutContent TrendReading::spans(const QRectF& rect, const TrendLayout& layout, bool time,
                                   bool values) const {
    ReadoutContent content;
    if (time) {
        const double from = layout.timeMap.toValue(rect.left());
        const double to = layout.timeMap.toValue(rect.right());
        const double pixel = (to - from) / std::max(1.0, rect.width());
        const int digits = std::clamp(static_cast<int>(std::ceil(-std::log10(pixel))), 0,
                                      m_chart.state.xAxis.mostDigits());
        const QString ends =
            axis().fullText(from, digits) + QStringLiteral(" – ") + axis().fullText(to, digits);
        content.lines += m_chart.state.numbers(axis().spanText(to - from, digits));
        content.lines += m_chart.state.numbers(ends);
    }
    if (!values) return content;
    content.titles = {QString(), tr("From"), tr("To"), tr("Span")};
    for (int axis = 1; axis <= trendScaleCount; ++axis) {
        const ScaleBand* band = layout.scale(axis);
        if (!band || band->idle) continue;
        const double top = std::max(rect.top(), band->band.top());
        const double bottom = std::min(rect.bottom(), band->band.bottom());
        if (bottom - top < 1) continue;
        const double from = band->map.toValue(bottom);
        const double to = band->map.toValue(top);
        const double step = (to - from) / (bottom - top);
        const TrendCurve* only = m_chart.onlyCurve(axis);
        QStringList cells{band->titleText};
        for (const double value : {from, to, to - from})
            cells += m_chart.state.numbers(DecimalTicks::text(value, step));
        const CurveStyle style = only ? only->style() : CurveStyle{};
        content.rows.push_back({style.colour, cells, style.dash});
    }
    return content;
}

} // namespace pellam
