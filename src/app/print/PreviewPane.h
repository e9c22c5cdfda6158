#pragma once

#include "app/print/PreviewSheet.h"

class QAction;
class QScrollArea;
class QSpinBox;
class QToolBar;

namespace pellam {

/// Print preview that stands inside the main window in place of its pages: a sheet at a time, and a
/// small toolbar to print, turn pages, change the size and go back.
class PreviewPane : public QWidget {
    Q_OBJECT

  public:
    /// `pages` is how many there are, at least 1.
    PreviewPane(const QPageLayout& paper, int pages, PreviewSheet::Paint paint,
                QWidget* parent = nullptr);

    [[nodiscard]] int pageCount() const { return m_pages; }

    /// The page shown, counted from 1.
    [[nodiscard]] int currentPage() const;
    /// Shows a page; one out of range becomes the nearest.
    void setCurrentPage(int page);

  Q_SIGNALS:
    void printWanted();
    void closeWanted();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    enum class Fit { Page, Width, Free };

    void fillToolbar(QToolBar* bar);
    void addPageKeys(QToolBar* bar);
    void addSizeKeys(QToolBar* bar);
    void showPageState();
    void fit(Fit fit);
    void zoomBy(double factor);

    int m_pages;
    Fit m_fit = Fit::Page;
    PreviewSheet* m_sheet = nullptr;
    QScrollArea* m_scroll = nullptr;
    QSpinBox* m_page = nullptr;
    QAction* m_previous = nullptr;
    QAction* m_next = nullptr;
};

} // namespace pellam
