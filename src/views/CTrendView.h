#pragma once

#include <QWidget>

QT_BEGIN_NAMESPACE
class QLabel;
class QTreeWidget;
QT_END_NAMESPACE

namespace pellam {

class GridData;

/// The "Trend" page: the channels that are selected for charting, with their axis numbers.
class CTrendView : public QWidget {
    Q_OBJECT
  public:
    /// Reads a store, which must outlive the page.
    explicit CTrendView(const GridData& grid, QWidget* parent = nullptr);

  public Q_SLOTS:
    /// Reads the channels from the store again; showing the page does it too.
    void refresh();

  Q_SIGNALS:
    /// A file was dropped on the page: the first one of the drop.
    void fileDropped(const QString& path);

  protected:
    void showEvent(QShowEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    const GridData& m_grid;
    QLabel* m_summary;
    QTreeWidget* m_channels;
};

} // namespace pellam
