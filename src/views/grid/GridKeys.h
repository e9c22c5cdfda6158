#pragma once

#include <Qt>

QT_BEGIN_NAMESPACE
class QKeyEvent;
QT_END_NAMESPACE

namespace pellam {

class MyCug;

/// What the keys do on the grid beyond the table's own: its commands, selection, check boxes, and
/// every way to another cell.
class GridKeys {
  public:
    /// `cug` must outlive it.
    explicit GridKeys(MyCug& cug) : m_cug(cug) {}

    /// False when the key is the table's own.
    bool handle(QKeyEvent& event);
    /// Goes to another cell as the key does, with Shift selecting up to it. False when the key does
    /// not go anywhere, as Tab in the last cell.
    bool move(int key, Qt::KeyboardModifiers modifiers);

  private:
    bool select(const QKeyEvent& event);
    bool step(bool forward);
    [[nodiscard]] int rowsInView() const;

    MyCug& m_cug;
};

} // namespace pellam
