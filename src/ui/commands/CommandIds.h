#pragma once

namespace pellam {

/// Number of every command; a menu item, a toolbar button and a sidebar task of the same command
/// share it. Each action carries its number as its data.
enum class Command : int {
    Open = 32771,
    OpenDatabase = 109,
    Export = 32772,
    ViewSpreadsheet = 32794,
    Print = 57607,
    PrintPreview = 57609,
    Preferences = 32808,
    Exit = 57665,

    Copy = 57634,
    Paste = 57637,
    SelectAllChannels = 57642,
    DeselectAllChannels = 57633,

    Sidebar = 32809,
    Toolbar = 59392,
    DataGrid = 32800,
    TrendChart = 32801,
    EditAxis = 32782,
    AutoScale = 32789,
    SelectionZoom = 32795,
    IncreaseFont = 32776,
    DecreaseFont = 32777,

    HelpContents = 57667,
    About = 57664,

    ResetMessages = 105, ///< no menu item: a task of the sidebar
    LoadTrend = 32788,   ///< accepted and does nothing

    // Beyond the common set.
    Cut = 57635,
    CopyWithHeadings = 33001,
    Find = 57636,
    FindNext = 33002,
    FindPrevious = 33003,
    GoTo = 33004,
    NextDamaged = 33005,
    PreviousDamaged = 33006,
    NextPage = 33007,
    PreviousPage = 33008,
    StripChart = 33009,
    Undo = 57643,
    Redo = 57644,
    ClearCells = 57632,
    ZoomBack = 33010,
    ZoomForward = 33011,
    ShowEverything = 33012,
    Crosshair = 33013,
    CursorA = 33014,
    CursorB = 33015,
    RemoveCursor = 33016,
    RemoveCursors = 33017,
    BreakGaps = 33018,
    ExportImage = 33019,
    YAxis = 33020, ///< the dialog of axis 1; the five numbers after it those of axes 2 to 6
    RevertToFile = 33040,
    Properties = 33026,
    OpenWithLayout = 33027,
    MissingAsNumbers = 33028,
    FitValues = 33100,
    FitYAxis = 33101, ///< fits axis 1; the five numbers after it axes 2 to 6
    ClockComputer = 33107,
    ClockNoDaylightSaving = 33108,
    ClockUtc = 33109,
    NextExtreme = 33110,
    PreviousExtreme = 33111,
    NextChartGap = 33112,
    PreviousChartGap = 33113,
    FirstRecentFile = 57616, ///< and the three numbers after it
};

/// In lists of commands for a menu or toolbar: a line between two groups.
constexpr Command kSeparator{};

/// The command of the dialog of an axis, 1 to 6.
constexpr Command yAxisCommand(int axis) {
    return static_cast<Command>(static_cast<int>(Command::YAxis) + axis - 1);
}

/// The command that fits an axis, 1 to 6.
constexpr Command fitAxisCommand(int axis) {
    return static_cast<Command>(static_cast<int>(Command::FitYAxis) + axis - 1);
}

} // namespace pellam
