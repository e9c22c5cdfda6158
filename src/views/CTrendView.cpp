#include "views/CTrendView.h"

#include "grid/GridData.h"
#include "views/GridModel.h"

#include <QDragEnterEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMimeData>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace pellam {

CTrendView::CTrendView(const GridData& grid, QWidget* parent)
    : QWidget(parent),
      m_grid(grid),
      m_summary(new QLabel),
      m_channels(new QTreeWidget) {
    setAcceptDrops(true);
    m_summary->setWordWrap(true);
    m_channels->setRootIsDecorated(false);
    m_channels->setUniformRowHeights(true);
    m_channels->setHeaderLabels({tr("Axis"), tr("Channel")});
    m_channels->header()->setStretchLastSection(true);
    m_channels->setAccessibleName(tr("Channels selected for charting"));
    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(16, 16, 16, 16);
    box->setSpacing(12);
    box->addWidget(m_summary);
    box->addWidget(m_channels, 1);
    refresh();
}

void CTrendView::refresh() {
    m_channels->clear();
    const bool loaded = m_grid.rowCount() > 0;
    for (int column = 1; loaded && column <= m_grid.channelCount(); ++column) {
        const Column& channel = m_grid.column(column);
        if (!channel.charted()) continue;
        auto* item = new QTreeWidgetItem(m_channels);
        item->setData(0, Qt::DisplayRole, channel.axis());
        item->setText(1, spacedLabel(screenText(channel.label())));
    }
    const int charted = m_channels->topLevelItemCount();
    m_channels->setVisible(charted > 0);
    if (!loaded) {
        m_summary->setText(tr("No data is loaded. Open a file to see its channels here."));
    } else if (charted == 0) {
        m_summary->setText(tr("No channel is selected for charting. Channels are selected with the "
                              "check boxes in the headings of the grid."));
    } else {
        m_summary->setText(
            tr("%1 selected for charting, %L2 rows of data. This version "
               "does not draw the chart yet; the data is on the Grid page.")
                .arg(charted == 1 ? tr("1 channel") : tr("%L1 channels").arg(charted))
                .arg(m_grid.rowCount()));
    }
    m_summary->setAlignment(charted > 0 ? Qt::AlignLeft : Qt::AlignCenter);
}

void CTrendView::showEvent(QShowEvent* event) {
    refresh();
    QWidget::showEvent(event);
}

void CTrendView::dragEnterEvent(QDragEnterEvent* event) {
    const QList<QUrl> urls = event->mimeData()->urls();
    if (!urls.isEmpty() && urls.first().isLocalFile()) event->acceptProposedAction();
}

void CTrendView::dropEvent(QDropEvent* event) {
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.isEmpty() || !urls.first().isLocalFile()) return;
    event->acceptProposedAction();
    Q_EMIT fileDropped(urls.first().toLocalFile());
}

} // namespace pellam
