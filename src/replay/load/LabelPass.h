#pragma once

#include "grid/GridData.h"
#include "replay/load/ColumnMap.h"

#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// Gives the grid its headings from channel labels such as "A.Temp.Ave(degC)" and finds out which
/// values belong in which column.
class LabelPass {
  public:
    explicit LabelPass(GridData& grid) : m_grid(grid) {}

    /// All labels of a data map; those marked ",NL" are not logged and get no column.
    ColumnMap DisplayLabels(const std::vector<std::string>& labels);

    /// The labels chosen for a large file, each with its number in the schedule: "A.Temp(degC){3}".
    ColumnMap DisplayChosenLabels(const std::vector<std::string>& chosen);

    /// What the values of a channel are, by its label. `extremes`: the dates and times of extremes
    /// (".Dmx", ".Tmn" and so on) count as dates and times.
    static ColumnKind kindOf(std::string_view label, bool extremes);

  private:
    void addHeading(std::string_view label);
    void finish();

    GridData& m_grid;
    int m_column = 0;
};

} // namespace pellam
