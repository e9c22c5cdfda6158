#pragma once

#include "trend/curves/CurveReader.h"
#include "trend/curves/ZoomHistory.h"

#include <QElapsedTimer>
#include <QPointF>
#include <functional>
#include <optional>

namespace pellam {

class CTrend;
class TrendScene;
class TrendZoom;

/// What a person can do with the control, whether by mouse, key, menu or assistive technology.
class TrendCommands {
  public:
    /// Changes of one kind that follow each other at once are one step of the zoom history; those
    /// of a drag are one until endStep().
    enum class Step { Single, WheelTime, WheelValues, KeyTime, KeyValues, Drag };
    static constexpr int kStepPause = 800; ///< milliseconds that part two steps

    explicit TrendCommands(CTrend& trend);

    void zoom(Step step, const std::function<bool(TrendZoom&)>& edit);

    void endStep() { m_lastStep = Step::Single; }

    /// Leaves what was shown before as a step to go back to, unless it is still shown.
    void remember(const TrendRanges& before);
    void zoomBack();
    void zoomForward();
    void zoomAll();
    /// Fits an axis (1 to 6; 0 = all) to the values between the shown times.
    void fitValues(int axis = 0);
    /// By parts of what is shown: 0.1 = a tenth; earlier (lower) when negative.
    void panTime(double part);
    void panValues(double part);
    /// By a factor (below 1 = closer): time around the crosshair, or else the middle, or the values
    /// of every scale around its middle.
    void zoomIn(double factor, bool values);

    const ZoomHistory& history() const { return m_history; }

    void dataChanged() { m_history.clear(); }

    /// The crosshair follows the pointer, or leaves with it.
    void pointAt(const std::optional<QPointF>& pointer);
    /// The crosshair goes to a time by itself; nothing hides it.
    void setCrosshair(std::optional<double> time);
    /// Chooses the row that the crosshair reads at a time: that of the latest sample before it.
    void chooseTime(double time);
    /// To the next (direction 1) or previous (-1) sample of any drawn curve.
    void stepCrosshair(int direction);

    /// By pixels to the right.
    void moveCrosshair(double pixels);
    /// To the next (direction 1) or previous (-1) turn of a drawn curve, or last sample before a
    /// gap.
    void stepToExtreme(int direction);
    void stepToGap(int direction);

    bool crosshairFollows() const { return m_follow; }

    void setCrosshairFollows(bool on);

    /// Puts a cursor (0 = A, 1 = B) at a time, or at the sample before it when that is in view;
    /// without a time to the crosshair, or else to the middle.
    void setCursor(int cursor, std::optional<double> time = {});
    /// Takes the cursor off that was set or moved last, or all.
    void removeCursor();
    void removeCursors();

    void toggleCurve(int curve);
    /// Keyboard focus in the legend: to its first entry, along it, and back to the drawing area.
    void enterLegend();
    void moveInLegend(int by);
    void leaveLegend();
    /// Curve of the legend entry that has the focus; -1 without one.
    int focusedCurve();
    /// Opens the menu of the curves for which the legend has no room.
    void openLegendMenu();
    /// To be called when Space or Enter is pressed in the legend.
    void pressInLegend();
    /// Opens the dialog of a scale, when the scale allows it.
    void editScale(int axis);

    /// Shows what has changed over the curves.
    void updateOverlay();

  private:
    void rangesChanged();
    std::optional<double> sampleTime(double time) const;
    std::optional<double> neighbour(double time, int direction) const;
    using Next = std::function<std::optional<CurveSample>(int curve, double time)>;
    void stepToNearest(int direction, const Next& next);
    void showCrosshair(double time);
    void announce();

    CTrend& m_trend;
    TrendScene& m_scene;
    ZoomHistory m_history;
    Step m_lastStep = Step::Single;
    QElapsedTimer m_clock;
    bool m_follow = true;
};

} // namespace pellam
