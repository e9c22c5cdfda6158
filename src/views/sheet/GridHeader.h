#pragma once

#include <QBasicTimer>
#include <QHeaderView>

namespace pellam {

/// The headings of the grid's columns: a check box, the channel's name and its units. Column 0
/// stays at the left edge when the grid is scrolled. Dragging a heading asks for the column to be
/// moved; the sections themselves never move, since a moved section makes table views walk through
/// all rows.
class GridHeader : public QHeaderView {
    Q_OBJECT
  public:
    explicit GridHeader(QWidget* parent = nullptr);

    /// Headings of columns 1 to `column` can be dragged among each other; 0: none can.
    void setLastMovable(int column) { m_lastMovable = column; }

    /// Headings keep a selection model of their own: with the table's they would ask it for every
    /// section whether all of its rows are selected.
    void setSelectionModel(QItemSelectionModel* selection) override;

    /// Column whose heading is emphasised; -1 for none.
    void setCurrentColumn(int column);

    /// Width that a heading needs beside its text: the check box and the margins.
    [[nodiscard]] int decorationWidth() const;
    /// Width in which a heading shows name and units, current or not; 0 without any.
    [[nodiscard]] int headingWidth(int column) const;
    /// Place of a column's check box, in viewport coordinates.
    [[nodiscard]] QRect checkBoxRect(int column) const;
    /// Place of a column's heading, in viewport coordinates; column 0 at the left edge.
    [[nodiscard]] QRect headingRect(int column) const;
    /// Column at a place of the viewport; -1 for none.
    [[nodiscard]] int columnAt(int x) const;

    QSize sizeHint() const override;

  Q_SIGNALS:
    void checkBoxClicked(int column);
    void headingPressed(int column, Qt::KeyboardModifiers modifiers);
    /// A heading is about to be dragged.
    void dragStarted(int column);
    /// The edge of a heading was taken, but columns can't be resized now.
    void resizeRefused();
    /// A heading was dropped so that its column is to end at index `to`.
    void moveRequested(int from, int to);

  protected:
    void paintEvent(QPaintEvent* event) override;
    QSize sectionSizeFromContents(int column) const override;
    void paintSection(QPainter* painter, const QRect& rect, int column) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    bool viewportEvent(QEvent* event) override;

  private:
    [[nodiscard]] int handleAt(int x) const;
    [[nodiscard]] bool resizable(int handle) const;
    [[nodiscard]] QRect checkBoxIn(const QRect& heading) const;
    [[nodiscard]] int insertionBefore(int x) const;
    [[nodiscard]] int frozenShift(int x) const;
    void dragTo(int x);
    void endDrag();

    int m_current = -1;
    int m_pressed = -1;      ///< column whose heading is held
    int m_pressX = 0;        ///< where it was taken
    int m_insertion = -1;    ///< column before which a drop would insert; -1 while not dragging
    int m_resizeShift = 0;   ///< distance that mouse positions are moved by while resizing
    bool m_resizing = false; ///< the base class has the mouse
    int m_lastMovable = 0;
    QBasicTimer m_scrollTimer; ///< runs while a heading is held beyond an edge
};

} // namespace pellam
