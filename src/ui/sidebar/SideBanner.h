#pragma once

#include <QIcon>
#include <QString>
#include <QWidget>

namespace pellam {

/// A banner with an icon, a caption in bold (at most two lines) and a title below it. What does not
/// fit ends in an ellipsis, and the tool tip then has the whole text.
class SideBanner : public QWidget {
    Q_OBJECT

  public:
    explicit SideBanner(QWidget* parent = nullptr);

    void setIcon(const QIcon& icon);
    void setCaption(const QString& caption);
    void setTitle(const QString& title);

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }

    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    [[nodiscard]] QFont captionFont() const;
    [[nodiscard]] int iconExtent() const;
    [[nodiscard]] int textWidth(int width) const;
    [[nodiscard]] QStringList captionLines(int width) const;
    void textsChanged();
    void updateToolTip();

    QIcon m_icon;
    QString m_caption;
    QString m_title;
};

} // namespace pellam
