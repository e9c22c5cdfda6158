#pragma once

#include <QProxyStyle>

namespace pellam {

/// The desktop's style with message icons of our own, dialog buttons without pictures and, where
/// the style is Qt's own, check boxes that stand out on light and dark backgrounds alike. Labels
/// and tool tips show their texts as they stand: what a file holds is never taken for markup.
/// Labels of message boxes are left alone, as Qt's own boxes have markup.
class ToolkitStyle : public QProxyStyle {
    Q_OBJECT

  public:
    ToolkitStyle() = default;

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
    [[nodiscard]] QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

} // namespace pellam
