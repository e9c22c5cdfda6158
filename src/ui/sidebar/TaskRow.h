#pragma once

#include <QAbstractButton>

namespace pellam {

/// A row of the task sidebar: an icon and a text that wraps and is never cut off. Enter and Space
/// press it; clicking it leaves the keyboard where it is.
class TaskRow : public QAbstractButton {
    Q_OBJECT

  public:
    explicit TaskRow(QWidget* parent = nullptr);

    /// Sets the text as it stands; an '&' is an ordinary character.
    void setPlainText(const QString& text);

    [[nodiscard]] QString plainText() const { return accessibleName(); }

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }

    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

    /// Font of the text.
    [[nodiscard]] virtual QFont textFont() const { return font(); }

    /// Room kept free at the trailing end.
    [[nodiscard]] virtual int trailingWidth() const { return 0; }

    /// Draws what goes into that room.
    virtual void paintTrailing(QPainter&, const QRect&) {}

    [[nodiscard]] int iconExtent() const;

  private:
    [[nodiscard]] int textLeft() const;
    [[nodiscard]] int textWidth(int width) const;
    [[nodiscard]] qreal textHeight(int width) const;
    void paintState(QPainter& painter) const;
    void paintText(QPainter& painter) const;
};

} // namespace pellam
