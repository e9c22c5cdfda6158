#pragma once

#include <QWidget>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QToolButton;
QT_END_NAMESPACE

namespace pellam {

/// The bar below the grid that asks what to find.
class FindBar : public QWidget {
    Q_OBJECT
  public:
    explicit FindBar(QWidget* parent = nullptr);

    [[nodiscard]] QString text() const;
    [[nodiscard]] bool currentColumnOnly() const;
    [[nodiscard]] bool caseSensitive() const;
    [[nodiscard]] bool wholeCell() const;

    /// Shows the bar with the keyboard in its field, all of it selected.
    void open();
    /// A remark at the end of the bar: how a search ended, or how far it is.
    void showRemark(const QString& remark);

  Q_SIGNALS:
    void findNext();
    void findPrevious();
    /// Escape was pressed or the bar was closed.
    void dismissed();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QLineEdit* m_text;
    QComboBox* m_columns;
    QCheckBox* m_case;
    QCheckBox* m_whole;
    QLabel* m_remark;
    QToolButton* m_close;
};

} // namespace pellam
