#pragma once

namespace pellam {

class CMainFrame;
class CommandSet;

/// Adds the commands of the main window to its set: those that neither page has alone.
void addFrameCommands(CommandSet& commands, CMainFrame& frame);

} // namespace pellam
