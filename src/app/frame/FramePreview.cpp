#include "app/frame/FramePreview.h"

#include "app/frame/FrameActions.h"
#include "app/print/FramePrinting.h"
#include "app/print/PreviewPane.h"

#include <QAction>
#include <QStackedWidget>

#include <utility>

namespace pellam {

FramePreview::FramePreview(QStackedWidget* stack, FramePrinting& printing, FrameActions& actions)
    : QObject(&printing),
      m_stack(stack),
      m_printing(printing),
      m_actions(actions) {}

void FramePreview::begin(bool chart) {
    m_pane = (chart ? m_printing.previewChart() : m_printing.previewGrid()).release();
    if (!m_pane) return;
    connect(m_pane, &PreviewPane::closeWanted, this, &FramePreview::closeWanted);
    connect(m_pane, &PreviewPane::printWanted, m_actions.action(Command::Print), &QAction::trigger);
    m_stack->addWidget(m_pane);
    m_stack->setCurrentWidget(m_pane);
    m_pane->setFocus();
}

void FramePreview::end(QWidget* pages) {
    m_stack->setCurrentWidget(pages);
    // The pane's own Close command may be what is running.
    if (m_pane) std::exchange(m_pane, nullptr)->deleteLater();
}

} // namespace pellam
