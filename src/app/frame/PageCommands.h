#pragma once

namespace pellam {

class CGridView;
class CTrendView;
class FrameActions;

/// Hands the commands that one page alone carries out to that page. Those that depend on which page
/// is in front, such as copying, are not among them.
void connectPageCommands(FrameActions& actions, CGridView& grid, CTrendView& chart);

} // namespace pellam
