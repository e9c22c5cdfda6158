#pragma once

#include <QIconEngine>
#include <QString>

namespace pellam {

/// Draws one picture of the program from its vectors. The line and accent colours of the line icons
/// become those of the application palette; other colours stay as drawn.
class LineIconEngine : public QIconEngine {
  public:
    /// `file` is the picture's file name without folder and extension.
    explicit LineIconEngine(const QString& file);

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;

    [[nodiscard]] QIconEngine* clone() const override { return new LineIconEngine(m_file); }

    [[nodiscard]] bool isNull() override { return false; }

  private:
    QString m_file;
};

} // namespace pellam
