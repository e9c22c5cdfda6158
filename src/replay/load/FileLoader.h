#pragma once

#include "base/InternationalSettings.h"
#include "base/MessageSink.h"
#include "base/ProgressSink.h"
#include "delimited/layout/LayoutWishes.h"
#include "delimited/sample/TextSample.h"
#include "grid/GridData.h"
#include "replay/load/ChannelChooser.h"
#include "replay/outcome/LoadOutcome.h"

#include <functional>
#include <string>

namespace pellam {

/// Everything a load needs beside the file's path.
struct LoadContext {
    GridData& grid;
    const InternationalSettings& international;
    MessageSink& messages;
    ProgressSink& progress;
    ChannelChooser& chooser;
    bool greyRows = false; ///< draw good rows grey (the grid is protected against editing)
    /// The folder for converted files; empty (or absent) when none is set.
    std::function<std::string()> saveFolder = {};
    /// Lets the person set that folder; absent where nobody can be asked.
    std::function<void()> askSaveFolder = {};
    bool storedSession = false; ///< the file is a database session's: messages call it so
    LayoutWishes wishes = {};   ///< of the layout of delimited text
    /// What was asked for earlier of files such as this one; absent where nothing is remembered.
    /// Counts where `wishes` are none.
    std::function<LayoutWishes(const TextSample&)> recallWishes = {};
    bool asText = false; ///< the file is delimited text, whatever its name
};

/// Loads one file into the grid: routes it by its extension to the reader of its kind. The window,
/// the batch command line and the tests load through this alone.
class FileLoader {
  public:
    explicit FileLoader(const LoadContext& context);

    /// Empties the grid, loads the file and sorts the chart axes by units. Messages go to the
    /// context's sink. A refused or failed load leaves the grid empty.
    LoadOutcome load(const std::string& path);

    /// The separator that a text file of this name has, if nothing tells another.
    static char separatorFor(const std::string& path, const InternationalSettings& international);

  private:
    LoadOutcome route(const std::string& path);
    LoadOutcome loadText(const std::string& path);

    LoadContext m_context;
};

} // namespace pellam
