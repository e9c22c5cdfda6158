#pragma once

#include <QRectF>
#include <QString>

class QPainter;
class QPrinter;

namespace pellam {

class TrendOperations;

/// Puts a chart on a page of paper: white, with the file's name above it.
class TrendPrinting {
  public:
    /// The chart must outlive this object.
    TrendPrinting(TrendOperations& trend, const QString& fileName);

    /// Draws the page into a rectangle of the painter; `unitsPerInch` is the painter's resolution.
    void paintPage(QPainter& painter, const QRectF& area, double unitsPerInch) const;

    /// Prints the page; false when the printer can't be used.
    [[nodiscard]] bool print(QPrinter& printer) const;

  private:
    void drawChart(QPainter& painter, const QRectF& target, double unitsPerInch) const;
    double PrintTitlePage(QPainter& painter, const QRectF& area, double unit) const;

    TrendOperations& m_trend;
    QString m_fileName;
};

} // namespace pellam
