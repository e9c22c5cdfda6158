#pragma once

#include <QStyledItemDelegate>

namespace pellam {

/// Draws and edits the cells of the grid. The axis row has a spin button in every cell.
class GridDelegate : public QStyledItemDelegate {
    Q_OBJECT
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The two halves of a spin button in an axis cell at `cell`.
    [[nodiscard]] static QRect spinUpRect(const QRect& cell);
    [[nodiscard]] static QRect spinDownRect(const QRect& cell);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QString displayText(const QVariant& value, const QLocale& locale) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

  Q_SIGNALS:
    /// A spin button was clicked.
    void spun(int column, bool up);
    /// An editor was closed, its text taken, by Enter or Tab.
    void leftByKey(int key, Qt::KeyboardModifiers modifiers);

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
    bool eventFilter(QObject* object, QEvent* event) override;
};

} // namespace pellam
