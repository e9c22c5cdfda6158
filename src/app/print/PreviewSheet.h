#pragma once

#include <QPageLayout>
#include <QWidget>

#include <functional>

class QPainter;

namespace pellam {

/// One sheet of paper as it will be printed, at a scale. Only the sheet that is shown is painted,
/// so the number of sheets costs nothing.
class PreviewSheet : public QWidget {
    Q_OBJECT

  public:
    /// Paints a page, counted from 0, into the printable area (painter coordinates).
    using Paint = std::function<void(QPainter& painter, int page, const QRectF& area)>;

    PreviewSheet(const QPageLayout& paper, Paint paint, QWidget* parent = nullptr);

    [[nodiscard]] int page() const { return m_page; }

    void setPage(int page);

    /// Screen pixels to a point (1/72 inch) of paper.
    [[nodiscard]] double scale() const { return m_scale; }

    void setScale(double scale);

    /// Size of the paper in points.
    [[nodiscard]] QSizeF paperSize() const;
    /// Room around the paper, in pixels.
    static constexpr int kRoom = 16;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QPageLayout m_paper;
    Paint m_paint;
    double m_scale = 1.0;
    int m_page = 0;
};

} // namespace pellam
