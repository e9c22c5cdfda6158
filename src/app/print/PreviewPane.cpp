#include "app/print/PreviewPane.h"

#include <QAction>
#include <QBoxLayout>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QToolBar>
#include <QWheelEvent>

namespace pellam {

PreviewPane::PreviewPane(const QPageLayout& paper, int pages, PreviewSheet::Paint paint,
                         QWidget* parent)
    : QWidget(parent),
      m_pages(pages) {
    setObjectName(QStringLiteral("PreviewPane"));
    m_sheet = new PreviewSheet(paper, std::move(paint));
    m_scroll = new QScrollArea;
    m_scroll->setWidget(m_sheet);
    m_scroll->setAlignment(Qt::AlignCenter);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setBackgroundRole(QPalette::Dark);
    m_scroll->setAccessibleName(tr("Print preview"));
    m_scroll->viewport()->installEventFilter(this);

    auto* bar = new QToolBar;
    fillToolbar(bar);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(bar);
    layout->addWidget(m_scroll);
    setFocusProxy(m_scroll);
    showPageState();
}

int PreviewPane::currentPage() const {
    return m_sheet->page() + 1;
}

void PreviewPane::setCurrentPage(int page) {
    m_sheet->setPage(qBound(1, page, m_pages) - 1);
    showPageState();
}

void PreviewPane::fillToolbar(QToolBar* bar) {
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    bar->addAction(tr("Print..."), this, &PreviewPane::printWanted);
    bar->addSeparator();
    addPageKeys(bar);
    bar->addSeparator();
    addSizeKeys(bar);
    bar->addSeparator();
    auto* close = bar->addAction(tr("Close"), this, &PreviewPane::closeWanted);
    close->setShortcut(QKeySequence(Qt::Key_Escape));
    for (auto* action : bar->actions()) {
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        addAction(action);
    }
}

void PreviewPane::addPageKeys(QToolBar* bar) {
    m_previous =
        bar->addAction(tr("Previous Page"), this, [this] { setCurrentPage(currentPage() - 1); });
    m_previous->setShortcut(QKeySequence(Qt::Key_PageUp));
    m_page = new QSpinBox;
    m_page->setAccessibleName(tr("Page"));
    m_page->setKeyboardTracking(false);
    m_page->setRange(1, m_pages);
    m_page->setPrefix(tr("Page "));
    m_page->setSuffix(tr(" of %1").arg(m_pages));
    m_page->setButtonSymbols(QAbstractSpinBox::NoButtons);
    m_page->setAlignment(Qt::AlignCenter);
    connect(m_page, &QSpinBox::valueChanged, this, &PreviewPane::setCurrentPage);
    bar->addWidget(m_page);
    m_next = bar->addAction(tr("Next Page"), this, [this] { setCurrentPage(currentPage() + 1); });
    m_next->setShortcut(QKeySequence(Qt::Key_PageDown));

    for (const auto key : {Qt::Key_Home, Qt::Key_End}) {
        auto* jump = new QAction(this);
        jump->setShortcut(QKeySequence(key));
        jump->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(jump, &QAction::triggered, this,
                [this, key] { setCurrentPage(key == Qt::Key_Home ? 1 : m_pages); });
        addAction(jump);
    }
}

void PreviewPane::addSizeKeys(QToolBar* bar) {
    auto* larger = bar->addAction(tr("Larger"), this, [this] { zoomBy(1.25); });
    larger->setShortcuts({QKeySequence(Qt::Key_Plus), QKeySequence(QStringLiteral("Ctrl++")),
                          QKeySequence(QStringLiteral("Ctrl+="))});
    auto* smaller = bar->addAction(tr("Smaller"), this, [this] { zoomBy(0.8); });
    smaller->setShortcuts({QKeySequence(Qt::Key_Minus), QKeySequence(QStringLiteral("Ctrl+-"))});
    bar->addAction(tr("Fit Width"), this, [this] { fit(Fit::Width); });
    bar->addAction(tr("Whole Page"), this, [this] { fit(Fit::Page); });
}

void PreviewPane::showPageState() {
    const QSignalBlocker quiet(m_page);
    m_page->setValue(currentPage());
    m_previous->setEnabled(currentPage() > 1);
    m_next->setEnabled(currentPage() < m_pages);
}

void PreviewPane::fit(Fit fit) {
    m_fit = fit;
    if (fit == Fit::Free) return;
    const auto paper = m_sheet->paperSize();
    const auto room =
        m_scroll->maximumViewportSize() - QSize(2 * PreviewSheet::kRoom, 2 * PreviewSheet::kRoom);
    const int bar = fit == Fit::Width ? m_scroll->verticalScrollBar()->sizeHint().width() : 0;
    const double wide = (room.width() - bar) / paper.width();
    const double high = room.height() / paper.height();
    m_sheet->setScale(qMax(0.1, fit == Fit::Width ? wide : qMin(wide, high)));
}

void PreviewPane::zoomBy(double factor) {
    m_fit = Fit::Free;
    m_sheet->setScale(qBound(0.2, m_sheet->scale() * factor, 5.0));
}

void PreviewPane::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fit(m_fit);
}

bool PreviewPane::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel) {
        const auto* wheel = static_cast<QWheelEvent*>(event);
        if (wheel->modifiers().testFlag(Qt::ControlModifier)) {
            if (wheel->angleDelta().y() != 0) zoomBy(wheel->angleDelta().y() > 0 ? 1.25 : 0.8);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace pellam
