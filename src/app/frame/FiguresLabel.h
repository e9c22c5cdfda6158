#pragma once

#include <QLabel>
#include <QStringList>

namespace pellam {

/// A line of texts beside each other, the most wanted first. It takes what room there is and shows
/// as many of them as fit, each whole or not at all; the tool tip and assistive technology have
/// them all.
class FiguresLabel : public QLabel {
    Q_OBJECT

  public:
    explicit FiguresLabel(QWidget* parent = nullptr);

    void setFigures(const QStringList& figures);

    /// All of them, whatever is shown.
    [[nodiscard]] QString wholeText() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    [[nodiscard]] int widthOf(const QString& text) const;
    void showWhatFits();

    QStringList m_figures;
};

} // namespace pellam
