#pragma once

class QKeyEvent;

namespace pellam {

class MyCug;

/// What the keys do on the grid beyond the table's own: its commands, selection, check boxes, and
/// jumps to the edges of the data.
class GridKeys {
  public:
    /// `cug` must outlive it.
    explicit GridKeys(MyCug& cug) : m_cug(cug) {}

    /// False when the key is the table's own.
    bool handle(QKeyEvent& event);

  private:
    bool select(const QKeyEvent& event);
    bool jumpToEdge(const QKeyEvent& event);

    MyCug& m_cug;
};

} // namespace pellam
