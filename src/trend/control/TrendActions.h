#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QMenu;
QT_END_NAMESPACE

namespace pellam {

class CTrend;
class CommandSet;

/// Adds the chart's commands to its set.
void addTrendCommands(CommandSet& commands, CTrend& trend);

/// Adds them to a menu. `axis` is the one that was pointed at, whose dialog is offered; 0 for none,
/// kAllAxes for a menu of those of all axes.
void fillTrendMenu(QMenu& menu, const CommandSet& commands, int axis);

constexpr int kAllAxes = -1;

} // namespace pellam
