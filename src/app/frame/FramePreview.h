#pragma once

#include <QObject>

class QStackedWidget;

namespace pellam {

class FrameActions;
class FramePrinting;
class PreviewPane;

/// The print preview that stands in the main window in place of its pages.
class FramePreview : public QObject {
    Q_OBJECT

  public:
    /// `stack` holds the pages, and the preview while it is on.
    FramePreview(QStackedWidget* stack, FramePrinting& printing, FrameActions& actions);

    /// The preview while it is on, else null.
    [[nodiscard]] PreviewPane* pane() const { return m_pane; }

    /// Shows the preview of the chart, or of the grid; nothing happens when there is none.
    void begin(bool chart);
    /// Brings `pages` back to the front; harmless when the preview is off.
    void end(QWidget* pages);

  Q_SIGNALS:
    /// The person wants to go back to the pages.
    void closeWanted();

  private:
    QStackedWidget* m_stack;
    FramePrinting& m_printing;
    FrameActions& m_actions;
    PreviewPane* m_pane = nullptr;
};

} // namespace pellam
