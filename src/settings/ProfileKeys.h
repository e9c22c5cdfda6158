#pragma once

#include <QString>

/// Names of the program's settings.
namespace pellam::profile {

inline const QString kSection = QStringLiteral("Default");
inline const QString kSaveFolder = QStringLiteral("SaveDir");
inline const QString kReplayFolder = QStringLiteral("ReplayDir");
inline const QString kLastReplay = QStringLiteral("MRUReplayDir");
inline const QString kLastDsn = QStringLiteral("LastDSN");
inline const QString kSidebarWidth = QStringLiteral("SideBarWidth");
inline const QString kToolbar = QStringLiteral("ToolBar");    ///< 0 hidden, 1 shown
inline const QString kWindow = QStringLiteral("WindowPlace"); ///< binary: size and place
inline const QString kRecentSection = QStringLiteral("Recent File List");

/// Text layouts that were told, by the headings of their files.
inline const QString kTextLayoutSection = QStringLiteral("Text Layouts");
inline const QString kTextLayouts = QStringLiteral("Known"); ///< newest first, see LayoutMemory

/// The chart.
inline const QString kChartSection = QStringLiteral("Chart");
inline const QString kClocks = QStringLiteral("Clocks"); ///< by headings, see ClockMemory

} // namespace pellam::profile
