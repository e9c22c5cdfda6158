#pragma once

#include <QObject>

#include <memory>

class QPrinter;
class QWidget;

namespace pellam {

class CGridView;
class CTrendView;
class PreviewPane;
class ProgressSink;

/// Puts the two pages on paper: the print dialog, and the sheets for the preview. Paper and printer
/// chosen once stay for the rest of the run; the chart is always printed in landscape.
class FramePrinting : public QObject {
    Q_OBJECT

  public:
    FramePrinting(QWidget* window, CGridView& grid, CTrendView& chart);
    ~FramePrinting() override;

    /// Asks for the printer and prints the grid; nothing happens when no row is loaded.
    void printGrid(ProgressSink& progress);
    /// The same for the chart; nothing happens when there is none.
    void printChart();

    /// A preview of the grid page; null when no row is loaded. The caller owns it.
    [[nodiscard]] std::unique_ptr<PreviewPane> previewGrid();
    /// A preview of the chart page; null when there is no chart.
    [[nodiscard]] std::unique_ptr<PreviewPane> previewChart();

  private:
    QPrinter& printer();

    QWidget* m_window;
    CGridView& m_grid;
    CTrendView& m_chart;
    std::unique_ptr<QPrinter> m_printer;
};

} // namespace pellam
