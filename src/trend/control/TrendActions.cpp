#include "trend/control/TrendActions.h"

#include "trend/control/CTrend.h"
#include "trend/control/TrendCommands.h"
#include "trend/control/TrendScene.h"
#include "ui/commands/CommandSet.h"

#include <QCoreApplication>
#include <QMenu>

namespace pellam {

namespace {

constexpr auto kByControl = CommandSpec::Keys::Control;

void addZooming(CommandSet& commands, CTrend& trend) {
    commands.add({.command = Command::SelectionZoom,
                  .text = "Selection &Zoom",
                  .keys = "F6",
                  .tip = "Zoom into a part of the chart by drawing a frame around it",
                  .icon = IconName::SelectionZoomOff,
                  .checkedIcon = IconName::SelectionZoomOn,
                  .run = [&trend] { trend.SetLassoZoom(trend.GetLassoZoom() == 0 ? 1 : 0); },
                  .checked = [&trend] { return trend.GetLassoZoom() != 0; }});
    commands.add({.command = Command::ZoomBack,
                  .text = "Zoom &Back",
                  .keys = "Backspace",
                  .tip = "Show what was shown before the last zooming or moving",
                  .readBy = kByControl,
                  .run = [&trend] { trend.zoomBack(); },
                  .enabled = [&trend] { return trend.canZoomBack(); }});
    commands.add({.command = Command::ZoomForward,
                  .text = "Zoom &Forward",
                  .keys = "Shift+Backspace",
                  .tip = "Take the last zooming back again",
                  .readBy = kByControl,
                  .run = [&trend] { trend.zoomForward(); },
                  .enabled = [&trend] { return trend.canZoomForward(); }});
    commands.add(
        {.command = Command::ShowEverything,
         .text = "Show &Everything",
         .keys = "Home",
         .tip = "Show all times and values",
         .readBy = kByControl,
         .run = [&trend] { trend.zoomAll(); },
         .enabled =
             [&trend] { return TrendRanges::of(trend.chart().state) != trend.homeRanges(); }});
}

void addMarks(CommandSet& commands, CTrend& trend) {
    const auto drawn = [&trend] { return !trend.scene().reading().drawnCurves().empty(); };
    const auto measuring = [&trend] { return trend.scene().marks.measuring(); };
    commands.add({.command = Command::Crosshair,
                  .text = "Cross&hair",
                  .keys = "C",
                  .tip = "Let the crosshair follow the pointer",
                  .readBy = kByControl,
                  .run =
                      [&trend] {
                          auto& chart = trend.commands();
                          chart.setCrosshairFollows(!chart.crosshairFollows());
                      },
                  .checked = [&trend] { return trend.commands().crosshairFollows(); }});
    commands.add({.command = Command::CursorA,
                  .text = "&Set Cursor A",
                  .keys = "A",
                  .tip = "Put the first measuring cursor at the crosshair",
                  .readBy = kByControl,
                  .run = [&trend] { trend.commands().setCursor(0, trend.menuTime()); },
                  .enabled = drawn});
    commands.add({.command = Command::CursorB,
                  .text = "Set C&ursor B",
                  .keys = "B",
                  .tip = "Put the second measuring cursor at the crosshair",
                  .readBy = kByControl,
                  .run = [&trend] { trend.commands().setCursor(1, trend.menuTime()); },
                  .enabled = drawn});
    commands.add({.command = Command::RemoveCursor,
                  .text = "Remove Cursor",
                  .keys = "Del",
                  .tip = "Take the measuring cursor off that was set or moved last",
                  .readBy = kByControl,
                  .run = [&trend] { trend.commands().removeCursor(); },
                  .enabled = measuring});
    commands.add({.command = Command::RemoveCursors,
                  .text = "&Remove Cursors",
                  .keys = "Shift+Del",
                  .tip = "Take both measuring cursors off",
                  .readBy = kByControl,
                  .run = [&trend] { trend.commands().removeCursors(); },
                  .enabled = measuring});
}

void addDisplay(CommandSet& commands, CTrend& trend) {
    commands.add({.command = Command::StripChart,
                  .text = "S&trip Chart",
                  .keys = "F7",
                  .tip = "Give every axis a strip of its own",
                  .icon = IconName::StripChart,
                  .run = [&trend] { Q_EMIT trend.stripChartRequested(); },
                  .enabled = [&trend] { return trend.chart().enabledScales() > 1; },
                  .checked = [&trend] { return trend.chart().isStrip(); }});
    commands.add({.command = Command::BreakGaps,
                  .text = "Break &Lines at Gaps",
                  .keys = "G",
                  .tip = "Draw no line where values are missing",
                  .readBy = kByControl,
                  .run = [&trend] { trend.setBreakGaps(!trend.chart().state.breakGaps); },
                  .checked = [&trend] { return trend.chart().state.breakGaps; }});
    static constexpr const char* kAxes[] = {"Y Axis &1...", "Y Axis &2...", "Y Axis &3...",
                                            "Y Axis &4...", "Y Axis &5...", "Y Axis &6..."};
    static constexpr const char* kAxisKeys[] = {"1", "2", "3", "4", "5", "6"};
    for (int axis = 1; axis <= trendScaleCount; ++axis) {
        commands.add({.command = yAxisCommand(axis),
                      .text = kAxes[axis - 1],
                      .keys = kAxisKeys[axis - 1],
                      .tip = "Edit the range and scaling of this axis",
                      .readBy = kByControl,
                      .run = [&trend, axis] { trend.commands().editScale(axis); },
                      .enabled =
                          [&trend, axis] {
                              const TrendScale* scale = trend.chart().scale(axis);
                              return scale && scale->enabled && scale->userDialogEnabled;
                          }});
    }
}

// What the owner does.
void addRequests(CommandSet& commands, CTrend& trend) {
    commands.add({.command = Command::EditAxis,
                  .text = "Edit A&xis...",
                  .keys = "Ctrl+Shift+X",
                  .tip = "Edit the titles and ranges of the axes",
                  .icon = IconName::EditAxes,
                  .run = [&trend] { Q_EMIT trend.editAxisRequested(); }});
    commands.add({.command = Command::AutoScale,
                  .text = "&Auto Scale",
                  .keys = "F5",
                  .tip = "Fit the axes to the data",
                  .icon = IconName::AutoScale,
                  .run = [&trend] { Q_EMIT trend.autoScaleRequested(); }});
    commands.add({.command = Command::Copy,
                  .text = "&Copy",
                  .keys = "Ctrl+C",
                  .tip = "Copy the chart as a picture",
                  .icon = IconName::Copy,
                  .readBy = kByControl,
                  .run = [&trend] { Q_EMIT trend.copyRequested(); }});
    commands.add({.command = Command::ExportImage,
                  .text = "Export &Image...",
                  .keys = "I",
                  .tip = "Write the chart to a PNG, SVG or PDF file",
                  .readBy = kByControl,
                  .run = [&trend] { Q_EMIT trend.exportImageRequested(); }});
}

} // namespace

void addTrendCommands(CommandSet& commands, CTrend& trend) {
    addZooming(commands, trend);
    addMarks(commands, trend);
    addDisplay(commands, trend);
    addRequests(commands, trend);
}

void fillTrendMenu(QMenu& menu, const CommandSet& commands, int axis) {
    using enum Command;
    commands.addTo(menu, {SelectionZoom, ZoomBack, ZoomForward, ShowEverything, kSeparator,
                          Crosshair, CursorA, CursorB, RemoveCursors, kSeparator, StripChart,
                          BreakGaps, kSeparator});
    if (axis == kAllAxes) {
        auto* axes = menu.addMenu(QCoreApplication::translate("Commands", "&Y Axis"));
        for (int each = 1; each <= trendScaleCount; ++each)
            commands.addTo(*axes, {yAxisCommand(each)});
    } else if (axis > 0 && commands.action(yAxisCommand(axis))->isEnabled()) {
        commands.addTo(menu, {yAxisCommand(axis)});
    }
    commands.addTo(menu, {EditAxis, AutoScale, kSeparator, Copy, ExportImage});
}

} // namespace pellam
