#pragma once

#include <QAbstractButton>

namespace pellam {

/// The corner of the grid: shows "*" while something has changed since the chart was last built;
/// a click selects all cells.
class GridCorner : public QAbstractButton {
    Q_OBJECT
  public:
    explicit GridCorner(QWidget* parent = nullptr);

    void setMarked(bool marked);

    [[nodiscard]] bool isMarked() const { return !text().isEmpty(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace pellam
