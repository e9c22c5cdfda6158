#pragma once

#include "ui/IconSet.h"

#include <QIconEngine>

namespace pellam {

/// Draws one line icon from its vectors in the colours of the application palette.
class LineIconEngine : public QIconEngine {
  public:
    explicit LineIconEngine(IconName name) : m_name(name) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;

    [[nodiscard]] QIconEngine* clone() const override { return new LineIconEngine(m_name); }

    [[nodiscard]] bool isNull() override { return false; }

  private:
    IconName m_name;
};

} // namespace pellam
