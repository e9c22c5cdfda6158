#pragma once

#include <QMenu>

namespace pellam {

class MyCug;

/// The pop-up menu of the grid. Each item's data is the number of its command, as in MyCug.
class GridMenu : public QMenu {
    Q_OBJECT

  public:
    /// Items are greyed by what the grid is now.
    explicit GridMenu(MyCug& cug);

  private:
    void add(const QString& text, const QKeySequence& keys, int command, bool enabled);
};

} // namespace pellam
