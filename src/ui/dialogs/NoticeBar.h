#pragma once

#include <QWidget>

QT_BEGIN_NAMESPACE
class QPushButton;
class QToolButton;
QT_END_NAMESPACE

namespace pellam {

/// A quiet line above a page that tells something of it, with a button that does something about
/// it and one that closes it. It never widens its window: what does not fit ends in an ellipsis.
class NoticeBar : public QWidget {
    Q_OBJECT

  public:
    /// `button` is the text of the button.
    explicit NoticeBar(const QString& button, QWidget* parent = nullptr);

    /// Shows the bar with a text.
    void open(const QString& text);

    [[nodiscard]] QString text() const;

    [[nodiscard]] QPushButton* button() const { return m_button; }

  Q_SIGNALS:
    /// The button was pressed.
    void chosen();
    /// The bar was closed by its button or Escape.
    void dismissed();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void dismiss();

    class Line;
    Line* m_line;
    QPushButton* m_button;
    QToolButton* m_close;
};

} // namespace pellam
