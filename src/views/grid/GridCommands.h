#pragma once

namespace pellam {

class CGridView;
class CommandSet;
class MyCug;

/// Adds the commands on cells: undoing, clipboard.
void addCellCommands(CommandSet& commands, MyCug& cug);

/// Adds the commands of the page around the grid: finding, going to a place.
void addPageCommands(CommandSet& commands, CGridView& page);

} // namespace pellam
