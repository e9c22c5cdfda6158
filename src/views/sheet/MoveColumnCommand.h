#pragma once

#include <QUndoCommand>

namespace pellam {

class GridModel;

/// Moves a column to another place, with the way back.
class MoveColumnCommand : public QUndoCommand {
  public:
    /// `model` must outlive the command.
    MoveColumnCommand(GridModel& model, int from, int to);

    void redo() override;
    void undo() override;

  private:
    GridModel& m_model;
    int m_from;
    int m_to;
};

} // namespace pellam
