#include "trend/control/TrendActions.h"

#include "trend/control/CTrend.h"
#include "trend/control/TrendCommands.h"
#include "trend/control/TrendScene.h"
#include "trend/curves/ScaleFit.h"
#include "ui/commands/CommandSet.h"

#include <QCoreApplication>
#include <QMenu>

namespace pellam {

namespace {

using enum Command;
using enum CommandSpec::Keys;

void addZooming(CommandSet& commands, CTrend& trend) {
    commands.add(
        {SelectionZoom, "Selection &Zoom", "F6",
         "Zoom into a part of the chart by drawing a frame around it", IconName::SelectionZoomOff,
         ByWindow, IconName::SelectionZoomOn},
        [&trend] { trend.SetLassoZoom(trend.GetLassoZoom() == 0 ? 1 : 0); }, {},
        [&trend] { return trend.GetLassoZoom() != 0; });
    commands.add(
        readByControl(ZoomBack, "Zoom &Back", "Backspace",
                      "Show what was shown before the last zooming or moving"),
        [&trend] { trend.zoomBack(); }, [&trend] { return trend.canZoomBack(); });
    commands.add(
        readByControl(ZoomForward, "Zoom &Forward", "Shift+Backspace",
                      "Take the last zooming back again"),
        [&trend] { trend.zoomForward(); }, [&trend] { return trend.canZoomForward(); });
    commands.add(
        readByControl(ShowEverything, "Show &Everything", "Home", "Show all times and values"),
        [&trend] { trend.zoomAll(); },
        [&trend] { return TrendRanges::of(trend.chart().state) != everything(trend.chart()); });
}

void addFitting(CommandSet& commands, CTrend& trend) {
    commands.add(
        {FitValues, "Fit &Values to View", "Shift+F5",
         "Fit the axes to the values between the shown times", IconName::FitValues},
        [&trend] { trend.commands().fitValues(); },
        [&trend] { return !trend.scene().reading().drawnCurves().empty(); });
    static constexpr const char* kAxes[] = {"Fit Y Axis &1 to View", "Fit Y Axis &2 to View",
                                            "Fit Y Axis &3 to View", "Fit Y Axis &4 to View",
                                            "Fit Y Axis &5 to View", "Fit Y Axis &6 to View"};
    static constexpr const char* kKeys[] = {"Alt+1", "Alt+2", "Alt+3", "Alt+4", "Alt+5", "Alt+6"};
    for (int axis = 1; axis <= trendScaleCount; ++axis) {
        commands.add(
            readByControl(fitAxisCommand(axis), kAxes[axis - 1], kKeys[axis - 1],
                          "Fit this axis to the values between the shown times"),
            [&trend, axis] { trend.commands().fitValues(axis); },
            [&trend, axis] {
                const TrendScale* scale = trend.chart().scale(axis);
                return scale && scale->enabled && !trend.chart().isIdle(axis);
            });
    }
}

void addMarks(CommandSet& commands, CTrend& trend) {
    const auto drawn = [&trend] { return !trend.scene().reading().drawnCurves().empty(); };
    const auto measuring = [&trend] { return trend.scene().marks.measuring(); };
    commands.add(
        readByControl(Crosshair, "Cross&hair", "C", "Let the crosshair follow the pointer"),
        [&trend] {
            auto& chart = trend.commands();
            chart.setCrosshairFollows(!chart.crosshairFollows());
        },
        {}, [&trend] { return trend.commands().crosshairFollows(); });
    const auto add = [&](Command command, const char* text, const char* key, const char* tip,
                         void (TrendCommands::*step)(int), int direction) {
        commands.add(
            readByControl(command, text, key, tip),
            [&trend, step, direction] { (trend.commands().*step)(direction); }, drawn);
    };
    add(NextExtreme, "&Next Extreme", "X", "Move the crosshair to where a curve turns next",
        &TrendCommands::stepToExtreme, 1);
    add(PreviousExtreme, "&Previous Extreme", "Shift+X",
        "Move the crosshair to where a curve turned before", &TrendCommands::stepToExtreme, -1);
    add(NextChartGap, "Next &Gap", "N", "Move the crosshair to the last sample before the next gap",
        &TrendCommands::stepToGap, 1);
    add(PreviousChartGap, "Previous G&ap", "Shift+N",
        "Move the crosshair to the last sample before the gap before", &TrendCommands::stepToGap,
        -1);
    commands.add(
        readByControl(CursorA, "&Set Cursor A", "A",
                      "Put the first measuring cursor at the crosshair"),
        [&trend] { trend.commands().setCursor(0, trend.menuTime()); }, drawn);
    commands.add(
        readByControl(CursorB, "Set C&ursor B", "B",
                      "Put the second measuring cursor at the crosshair"),
        [&trend] { trend.commands().setCursor(1, trend.menuTime()); }, drawn);
    commands.add(
        readByControl(RemoveCursor, "Remove Cursor", "Del",
                      "Take the measuring cursor off that was set or moved last"),
        [&trend] { trend.commands().removeCursor(); }, measuring);
    commands.add(
        readByControl(RemoveCursors, "&Remove Cursors", "Shift+Del",
                      "Take both measuring cursors off"),
        [&trend] { trend.commands().removeCursors(); }, measuring);
}

void addDisplay(CommandSet& commands, CTrend& trend) {
    commands.add(
        {StripChart, "S&trip Chart", "F7", "Give every axis a strip of its own",
         IconName::StripChart},
        [&trend] { Q_EMIT trend.stripChartRequested(); },
        [&trend] { return trend.chart().enabledScales() > 1; },
        [&trend] { return trend.chart().isStrip(); });
    commands.add(
        readByControl(BreakGaps, "Break &Lines at Gaps", "G",
                      "Draw no line where values are missing"),
        [&trend] { trend.setBreakGaps(!trend.chart().state.breakGaps); }, {},
        [&trend] { return trend.chart().state.breakGaps; });
    static constexpr const char* kAxes[] = {"Y Axis &1...", "Y Axis &2...", "Y Axis &3...",
                                            "Y Axis &4...", "Y Axis &5...", "Y Axis &6..."};
    static constexpr const char* kAxisKeys[] = {"1", "2", "3", "4", "5", "6"};
    for (int axis = 1; axis <= trendScaleCount; ++axis) {
        commands.add(
            readByControl(yAxisCommand(axis), kAxes[axis - 1], kAxisKeys[axis - 1],
                          "Edit the range and scaling of this axis"),
            [&trend, axis] { trend.commands().editScale(axis); },
            [&trend, axis] {
                const TrendScale* scale = trend.chart().scale(axis);
                return scale && scale->enabled && scale->userDialogEnabled;
            });
    }
}

// What the owner does.
void addRequests(CommandSet& commands, CTrend& trend) {
    commands.add({EditAxis, "Edit A&xis...", "Ctrl+Shift+X",
                  "Edit the titles and ranges of the axes", IconName::EditAxes},
                 [&trend] { Q_EMIT trend.editAxisRequested(); });
    commands.add({AutoScale, "&Auto Scale", "F5", "Fit the axes to the data", IconName::AutoScale},
                 [&trend] { Q_EMIT trend.autoScaleRequested(); });
    commands.add(
        {Copy, "&Copy", "Ctrl+C", "Copy the chart as a picture", IconName::Copy, ByControl},
        [&trend] { Q_EMIT trend.copyRequested(); });
    commands.add(readByControl(ExportImage, "Export &Image...", "I",
                               "Write the chart to a PNG, SVG or PDF file"),
                 [&trend] { Q_EMIT trend.exportImageRequested(); });
}

} // namespace

void addTrendCommands(CommandSet& commands, CTrend& trend) {
    addZooming(commands, trend);
    addFitting(commands, trend);
    addMarks(commands, trend);
    addDisplay(commands, trend);
    addRequests(commands, trend);
}

void fillTrendMenu(QMenu& menu, const CommandSet& commands, int axis) {
    using enum Command;
    const auto addSubmenu = [&](const char* title) {
        return menu.addMenu(QCoreApplication::translate("Commands", title));
    };
    commands.addTo(menu,
                   {SelectionZoom, ZoomBack, ZoomForward, ShowEverything, AutoScale, FitValues});
    if (axis == kAllAxes) {
        auto* axes = addSubmenu("Fit &One Axis to View");
        for (int each = 1; each <= trendScaleCount; ++each)
            commands.addTo(*axes, {fitAxisCommand(each)});
    } else if (axis > 0 && commands.action(fitAxisCommand(axis))->isEnabled()) {
        commands.addTo(menu, {fitAxisCommand(axis)});
    }
    commands.addTo(menu, {kSeparator, Crosshair});
    commands.addTo(*addSubmenu("&Move Crosshair"),
                   {NextExtreme, PreviousExtreme, NextChartGap, PreviousChartGap});
    commands.addTo(
        menu, {CursorA, CursorB, RemoveCursors, kSeparator, StripChart, BreakGaps, kSeparator});
    if (axis == kAllAxes) {
        auto* axes = addSubmenu("&Y Axis");
        for (int each = 1; each <= trendScaleCount; ++each)
            commands.addTo(*axes, {yAxisCommand(each)});
    } else if (axis > 0 && commands.action(yAxisCommand(axis))->isEnabled()) {
        commands.addTo(menu, {yAxisCommand(axis)});
    }
    commands.addTo(menu, {EditAxis});
    if (commands.action(ClockComputer)) {
        auto* clocks = addSubmenu("Cloc&k");
        commands.addTo(*clocks, {ClockComputer, ClockNoDaylightSaving, ClockUtc});
    }
    commands.addTo(menu, {kSeparator, Copy, ExportImage});
}

} // namespace pellam
