#pragma once

#include "views/print/GridPageLayout.h"

#include <QRectF>
#include <QSizeF>
#include <QString>

QT_BEGIN_NAMESPACE
class QPagedPaintDevice;
class QPainter;
QT_END_NAMESPACE

namespace pellam {

class GridData;
class ProgressSink;

/// Puts the grid on paper: the axis row and all loaded rows of columns 0 to channelCount(), with
/// the headings on every page, row numbers at the left, and the file name and "Page n of m" at the
/// foot. Columns that do not fit go to further pages: all rows of the first columns come first.
/// Only the rows of the page at hand are ever read.
class GridPrinter {
  public:
    /// `fileName` is what the footer shows. The grid must outlive the printer.
    GridPrinter(const GridData& grid, QString fileName);

    /// Lays the pages out for a printable area of this size, in points (1/72 inch).
    void setPageSize(QSizeF points);

    /// Pages of the whole grid; 0 when no row is loaded.
    [[nodiscard]] int pageCount() const { return m_layout.pageCount(); }

    /// Paints page `page`, counted from 0, scaled into `target` (painter coordinates), which stands
    /// for the printable area that setPageSize() was given. Black on white in every theme.
    void paintPage(QPainter& painter, int page, const QRectF& target) const;

    /// First and last page, counted from 1, both included; a `last` of 0 is the last page there is.
    struct PageRange {
        int first = 1;
        int last = 0;
    };

    /// Prints pages to a printer or a PDF writer; the page size is taken from the device. False
    /// when there is nothing to print, the device cannot be painted on or the person aborted.
    bool print(QPagedPaintDevice& device, PageRange range, ProgressSink& progress);

  private:
    const GridData& m_grid;
    QString m_fileName;
    GridPageLayout m_layout;
};

} // namespace pellam
