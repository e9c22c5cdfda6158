#pragma once

#include "views/sheet/GridStep.h"

namespace pellam {

class GridModel;

/// Moves a column to another place, with the way back.
class MoveColumnCommand : public GridStep {
  public:
    /// `model` must outlive the command.
    MoveColumnCommand(GridModel& model, int from, int to);

    void redo() override;
    void undo() override;
    void lookBack(int& column, Row row, std::optional<Cell>& before) const override;
    void addWritten(std::set<int>& columns) const override;

  private:
    GridModel& m_model;
    int m_from;
    int m_to;
};

} // namespace pellam
