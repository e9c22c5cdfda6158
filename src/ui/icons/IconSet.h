#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>

namespace pellam {

/// The pictures of the program's commands.
enum class IconName {
    Open,
    Database,
    Export,
    Spreadsheet,
    Print,
    PrintPreview,
    Preferences,
    ResetDialogs,
    Grid,
    Chart,
    SelectAll,
    DeselectAll,
    EditAxes,
    AutoScale,
    FitValues,
    SelectionZoomOn,
    SelectionZoomOff,
    IncreaseFont,
    DecreaseFont,
    StripChart,
    Copy,
    Paste,
    Cut,
    Undo,
    Redo,
    Find,
    GoTo,
    NextDamaged,
    PreviousDamaged,
    Help,
    About,
    Abort,
    BrowseFolder,
    Tasks,  ///< heading "What do you want to do?"
    View,   ///< heading "What do you want to view?"
    Sidebar ///< showing and hiding the task sidebar
};

/// Number of names in IconName; the values run from 0.
constexpr int kIconNameCount = static_cast<int>(IconName::Sidebar) + 1;

/// The program's own line icons. They are drawn from vectors at the size asked for, in the colours
/// of the application palette at that moment, so one icon serves every scale factor and theme.
class IconSet {
  public:
    /// The icon of a command; its disabled form is grey, its selected form suits highlighted rows.
    static QIcon icon(IconName name);

    /// The icon of the program, in colour, in the sizes from 16 to 256 pixels.
    static QIcon applicationIcon();

    /// The one accent colour that goes with a palette (a lighter one on dark windows).
    static QColor accent(const QPalette& palette);

    IconSet() = delete;
};

} // namespace pellam
