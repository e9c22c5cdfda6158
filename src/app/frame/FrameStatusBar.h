#pragma once

#include <QObject>

class QLabel;
class QPushButton;
class QStatusBar;

namespace pellam {

class FiguresLabel;
struct LoadOutcome;
class PassedOver;

/// The fields of the status bar: the current cell, figures of the selection, rows, channels, bad
/// lines, what a load passed over (with a button for more), file, and the note that a load was
/// stopped.
class FrameStatusBar : public QObject {
    Q_OBJECT

  public:
    explicit FrameStatusBar(QStatusBar* bar);

    /// Shows the facts of what is on the grid; an outcome that loaded nothing empties the fields.
    /// A session from a database is shown by its name instead of a file's.
    void showLoad(const LoadOutcome& outcome, const QString& session = {});
    /// Shows figures of the selected cells; none for no selection.
    void showSelection(const QStringList& figures);
    /// Shows what the current cell is, where no remark stands.
    void showCell(const QStringList& facts);

    /// Texts of the fields that are visible, from left to right.
    [[nodiscard]] QStringList texts() const;

  Q_SIGNALS:
    /// The person asks what was passed over.
    void detailsWanted();

  private:
    void addField(QLabel* field, const QString& name);
    QLabel* addField(const QString& name);
    void showPassedOver(const PassedOver& passedOver);
    void set(QLabel* field, const QString& text);

    QStatusBar* m_bar;
    FiguresLabel* m_cell;
    FiguresLabel* m_selection;
    QLabel* m_stopped;
    QLabel* m_rows;
    QLabel* m_channels;
    QLabel* m_damaged;
    QLabel* m_passedOver;
    QPushButton* m_details;
    QLabel* m_file;
};

} // namespace pellam
