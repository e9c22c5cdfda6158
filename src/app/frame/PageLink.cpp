#include "app/frame/PageLink.h"

#include "ui/dialogs/TabPages.h"
#include "views/chart/CTrendView.h"
#include "views/grid/CGridView.h"

namespace pellam {

PageLink::PageLink(Context context, QObject* parent)
    : QObject(parent),
      m_context(std::move(context)) {
    auto& [pages, chartPage, grid, chart, isLoading] = m_context;
    connect(&pages, &TabPages::pageActivated, this, &PageLink::bringUp);
    connect(&chart, &CTrendView::rowChosen, this, &PageLink::goToRow);
    connect(&grid, &CGridView::currentRowChanged, &chart, &CTrendView::setCurrentRow);
    // Channels can be selected while the chart is in front.
    connect(
        &grid, &CGridView::changedMark, this,
        [this](bool changed) {
            if (changed && !m_context.isLoading()) bringUp(m_context.pages.activePage());
        },
        Qt::QueuedConnection);
}

void PageLink::bringUp(int page) {
    auto& chart = m_context.chart;
    if (page == m_context.chartPage) chart.OnActivateView(true, &chart, &m_context.grid);
}

void PageLink::goToRow(qint64 row) {
    m_context.grid.goToRow(row);
    Q_EMIT notice(tr("Row %L1 on the grid").arg(row + 1));
}

} // namespace pellam
