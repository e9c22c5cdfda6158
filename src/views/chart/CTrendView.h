#pragma once

#include "grid/GridData.h"
#include "views/chart/RowsByTime.h"
#include "views/series/ClockChoice.h"

#include <QWidget>

#include <functional>
#include <optional>

QT_BEGIN_NAMESPACE
class QLabel;
class QPageLayout;
class QPainter;
class QPrinter;
QT_END_NAMESPACE

namespace pellam {

class ClockBar;
class ClockMemory;
class CMyDropTarget;
class CommandSet;
class CTrend;
class MessageSink;
class NoticeBar;
class ProgressSink;
struct InternationalSettings;
struct TrendTable;

/// The "Trend" page: the channels that are selected for charting, drawn against time.
class CTrendView : public QWidget {
    Q_OBJECT
  public:
    /// What the page works with; all of it must outlive the page.
    struct Context {
        GridData& grid;
        const InternationalSettings& international;
        /// Takes the grid's mark away, when a rebuild starts.
        std::function<void()> clearMark;
        MessageSink& messages;
        std::function<ProgressSink&()> progress; ///< asked for when a rebuild starts
        /// Where saving an image starts.
        std::function<QString()> saveFolder = [] { return QString(); };
        /// Knows the clocks of files; without it a choice lasts until the chart is built anew.
        ClockMemory* clocks = nullptr;
    };

    explicit CTrendView(const Context& context, QWidget* parent = nullptr);
    ~CTrendView() override;

    [[nodiscard]] CTrend& trend() const { return *m_trend; }

    /// The commands of the chart and of the page.
    [[nodiscard]] CommandSet& commands() const;

    /// Takes files that are dropped on the page.
    [[nodiscard]] CMyDropTarget& dropTarget() const { return *m_dropTarget; }

    /// The page in front has changed from one to another. When this page comes to the front and the
    /// grid's mark is set, the chart is built anew and the mark is taken away.
    void OnActivateView(bool activate, const QWidget* activated, const QWidget* deactivated);
    /// Empties and hides every curve.
    void ResetView();

    /// Name of the open file, for the printed page; empty for none.
    void setFileName(const QString& name) { m_fileName = name; }

    [[nodiscard]] const QString& fileName() const { return m_fileName; }

    [[nodiscard]] bool canStack() const;

    [[nodiscard]] bool canIncreaseFont() const;
    [[nodiscard]] bool canDecreaseFont() const;
    /// Whether there are curves to be seen; otherwise a message stands in their place.
    [[nodiscard]] bool hasChart() const;
    /// That message; empty while there are curves.
    [[nodiscard]] QString message() const;

    /// Asks how to print and prints the chart in landscape; the printer's own orientation comes
    /// back. Nothing happens without a chart.
    void OnFilePrint(QPrinter& printer);
    /// The same for a preview, which the caller makes from the paper in landscape.
    void OnFilePrintPreview(QPrinter& printer,
                            const std::function<void(const QPageLayout&)>& preview);
    /// A preview begins or ends: while it stands, the chart itself is not drawn.
    void OnBeginPrinting(bool preview);
    void OnEndPrinting(bool preview);
    /// Draws the printed page into a rectangle of a painter.
    void OnPrint(QPainter& painter, const QRectF& area, double unitsPerInch);
    /// Prints the chart on one page; tells when the printer can't be used.
    void print(QPrinter& printer);

    /// The next rebuild shows the same times as now, if it counts the same.
    void keepTimes() { m_keepTimes = true; }

    /// The clock that the times of the chart are of.
    [[nodiscard]] ClockChoice clock() const;
    /// Draws the chart anew by another clock, and from now on all files with these headings.
    void chooseClock(ClockChoice clock);

    /// Marks the time of a data row, counted from 1, on the chart; 0 for none.
    void setCurrentRow(qint64 row);

  public Q_SLOTS:
    void OnViewZoom();
    void OnViewIncreasefontsize();
    void OnViewDecreasefontsize();
    /// Stacks the enabled Y scales, then scales them to the data.
    void OnViewStripchart();
    /// Stacks the Y scales, or gives each the whole height again when they are stacked.
    void toggleStripChart();
    void OnTrendSanity();
    void OnEditAxis();
    /// The chart as a bitmap of 800 x 600 pixels and as SVG.
    void OnEditCopy();
    /// Asks for a file and writes what is shown to it as PNG, SVG or PDF.
    void exportImage();

  Q_SIGNALS:
    /// The chart was built anew and the grid's mark was taken away.
    void rebuilt();
    /// A moment was chosen on the chart: the data row nearest to it, counted from 0.
    void rowChosen(qint64 row);
    /// Numbers that stand for no value are to be drawn, or left out again.
    void missingSwitched();
    /// Something that commands depend on has changed.
    void stateChanged();

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void OnInitialUpdate();
    void connectTrend();
    void SizeToFit();

    /// Events of the chart that need nothing done here.
    void OnTrendStep() {}

    void OnInsufficientTextSpace() {}

    void rebuild(std::optional<ClockChoice> clock);
    void showChart(TrendTable& table);
    void setUnits(const TrendTable& table);
    void tellMissing(const TrendTable& table);
    void addFontCommands();
    void addClockCommands();
    void changeFont(double step);
    bool OnPreparePrinting(QPrinter& printer);
    void PrintTitlePage(QPainter& painter, const QRectF& area, double unit) const;

    Context m_context;
    CTrend* m_trend;
    QLabel* m_message;
    NoticeBar* m_note; ///< of numbers that stand for no value
    ClockBar* m_clock;
    CMyDropTarget* m_dropTarget;
    RowsByTime m_rows;
    QString m_fileName;
    qint64 m_currentRow = 0;
    bool m_stacked = false;
    bool m_rebuilding = false;
    bool m_keepTimes = false;
};

} // namespace pellam
