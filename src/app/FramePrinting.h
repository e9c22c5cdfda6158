#pragma once

#include <QObject>

#include <memory>

class QPrinter;
class QWidget;

namespace pellam {

class CGridView;
class PreviewPane;
class ProgressSink;

/// Puts the grid page on paper: the print dialog, and the sheets for the preview. Paper and printer
/// chosen once stay for the rest of the run.
class FramePrinting : public QObject {
    Q_OBJECT

  public:
    FramePrinting(QWidget* window, CGridView& grid);
    ~FramePrinting() override;

    /// Asks for the printer and prints; nothing happens when no row is loaded.
    void print(ProgressSink& progress);

    /// A preview of the grid page; null when no row is loaded. The caller owns it.
    [[nodiscard]] std::unique_ptr<PreviewPane> makePreview();

  private:
    QPrinter& printer();

    QWidget* m_window;
    CGridView& m_grid;
    std::unique_ptr<QPrinter> m_printer;
};

} // namespace pellam
