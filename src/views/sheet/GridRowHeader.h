#pragma once

#include <QHeaderView>

namespace pellam {

/// The row numbers of the grid. In a grid of more than 64,000 rows all rows have one height, so
/// that resizing one resizes all.
class GridRowHeader : public QHeaderView {
    Q_OBJECT
  public:
    static constexpr int kMostSeparateHeights = 64000;

    explicit GridRowHeader(QWidget* parent = nullptr);

    /// A selection model of its own: with the table's it would ask that for every section whether
    /// all of its columns are selected.
    void setSelectionModel(QItemSelectionModel* selection) override;

    /// Row whose number is emphasised; -1 for none.
    void setCurrentRow(int row);

    QSize sizeHint() const override;

  protected:
    void paintSection(QPainter* painter, const QRect& rect, int row) const override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    int m_current = -1;
    int m_resized = -1; ///< row whose height was changed since the mouse went down
};

} // namespace pellam
