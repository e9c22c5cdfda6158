#pragma once

#include "trend/control/CTrend.h"
#include "trend/control/TrendCommands.h"
#include "trend/control/TrendScene.h"

#include <cmath>
#include <string>

namespace pellam {

/// A chart control in a window of 900 x 600, in UTC, with what a test does to it and what it shows
/// as text.
class TrendBench {
  public:
    CTrend trend{nullptr, QTimeZone::utc()};

    /// Rows of "time value value ...", "-" = no value; curve k is drawn on axis k + 1 and called
    /// "Curve1", "Curve2", ... with the units "u1", "u2", ... Shown are times 0 to 100, values 0 to
    /// 10 on axis 1, 0 to 20 on axis 2 and so on.
    explicit TrendBench(const char* rows) {
        std::vector<double> times;
        std::vector<std::vector<double>> curves;
        for (const QString& line : QString::fromLatin1(rows).split(u'\n', Qt::SkipEmptyParts)) {
            const QStringList cells = line.simplified().split(u' ');
            if (cells.size() < 2) continue;
            times.push_back(cells[0].toDouble());
            curves.resize(static_cast<std::size_t>(cells.size() - 1));
            for (qsizetype i = 1; i < cells.size(); ++i)
                curves[static_cast<std::size_t>(i - 1)].push_back(
                    cells[i] == u"-" ? std::nan("") : cells[i].toDouble());
        }
        load(std::move(times), std::move(curves));
    }

    TrendBench(std::vector<double>&& times, std::vector<std::vector<double>>&& curves) {
        load(std::move(times), std::move(curves));
    }

    TrendScene& scene() { return trend.scene(); }

    const TrendLayout& layout() { return trend.scene().layout(); }

    /// A point of the drawing area: 0 0 = top left, 1 1 = bottom right.
    QPointF at(double x, double y) {
        const QRectF plot = layout().plot;
        return {plot.left() + x * plot.width(), plot.top() + y * plot.height()};
    }

    /// The middle of an axis (0 = the time axis).
    QPointF axis(int axis) {
        return axis == 0 ? layout().timeAxis.center() : layout().scale(axis)->rect.center();
    }

    void mouse(QEvent::Type type, const QPointF& point, Qt::MouseButton button,
               Qt::MouseButtons held) {
        QMouseEvent event(type, point, trend.mapToGlobal(point), button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&trend, &event);
    }

    void hover(const QPointF& point) {
        mouse(QEvent::MouseMove, point, Qt::NoButton, Qt::NoButton);
    }

    void press(const QPointF& point, Qt::MouseButton button = Qt::LeftButton) {
        mouse(QEvent::MouseButtonPress, point, button, button);
    }

    void dragTo(const QPointF& point, Qt::MouseButton button = Qt::LeftButton) {
        mouse(QEvent::MouseMove, point, Qt::NoButton, button);
    }

    void release(const QPointF& point, Qt::MouseButton button = Qt::LeftButton) {
        mouse(QEvent::MouseButtonRelease, point, button, Qt::NoButton);
    }

    void drag(const QPointF& from, const QPointF& to, Qt::MouseButton button = Qt::LeftButton) {
        press(from, button);
        dragTo((from + to) / 2, button);
        dragTo(to, button);
        release(to, button);
    }

    void click(const QPointF& point) {
        press(point);
        release(point);
    }

    void doubleClick(const QPointF& point) {
        click(point);
        mouse(QEvent::MouseButtonDblClick, point, Qt::LeftButton, Qt::LeftButton);
        release(point);
    }

    void wheel(const QPointF& point, int notches, Qt::KeyboardModifiers held = Qt::NoModifier) {
        QWheelEvent event(point, trend.mapToGlobal(point), {}, QPoint(0, 120 * notches),
                          Qt::NoButton, held, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&trend, &event);
    }

    void key(Qt::Key pressed, Qt::KeyboardModifiers held = Qt::NoModifier) {
        QTest::keyClick(&trend, pressed, held);
    }

    /// "time 0..100 | 0..10 | 0..20": the shown ranges of time axis and enabled scales.
    std::string shown() {
        const TrendState& state = trend.chart().state;
        QString text = QStringLiteral("time ") + range(state.timeMin, state.timeMax);
        for (const TrendScale& scale : state.scales)
            if (scale.enabled)
                text += QStringLiteral(" | ") + range(scale.actualMin, scale.actualMax);
        return text.toStdString();
    }

    /// What the reading over the chart says.
    std::string reading() { return scene().overlay().content().text().join(u'\n').toStdString(); }

  private:
    static QString number(double value) {
        const double rounded = std::round(value * 100) / 100;
        return QString::number(rounded == 0 ? 0 : rounded);
    }

    static QString range(double min, double max) {
        return number(min) + QStringLiteral("..") + number(max);
    }

    void load(std::vector<double>&& times, std::vector<std::vector<double>>&& curves) {
        trend.Create(nullptr);
        trend.resize(900, 600);
        const auto shared = TrendTimes::create(std::move(times));
        for (std::size_t i = 0; i < curves.size(); ++i) {
            const int curve = static_cast<int>(i);
            const int scale = curve + 1;
            trend.setCurvePoints(curve, shared, std::move(curves[i]));
            trend.SetCurveText(curve, QStringLiteral("Curve%1").arg(scale));
            trend.SetCurveRelatedScale(curve, scale);
            trend.SetYScEnabled(scale, 1);
            trend.SetYScText(scale, QStringLiteral("u%1").arg(scale));
            trend.SetYScActualRangeMin(scale, 0);
            trend.SetYScActualRangeMax(scale, 10 * scale);
        }
        trend.SetXScActualRangeMin(0);
        trend.SetXScActualRangeMax(100);
        trend.grab();
    }
};

} // namespace pellam
