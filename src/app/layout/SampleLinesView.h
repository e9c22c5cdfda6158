#pragma once

#include "app/layout/LineRole.h"

#include <QAbstractTableModel>
#include <QTableView>

#include <vector>

namespace pellam {

/// The beginning of a text file as it stands, a line a row, with what each is taken for.
class SampleLinesModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Replaces the lines; of as many lines as before only the roles may differ.
    void setLines(std::vector<SampleLine> lines);

    [[nodiscard]] const std::vector<SampleLine>& lines() const { return m_lines; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

  private:
    std::vector<SampleLine> m_lines;
};

/// Shows those lines with their numbers, tinted by role. The menu of a line makes it that of the
/// headings, of the units or the first of the data.
class SampleLinesView : public QTableView {
    Q_OBJECT

  public:
    explicit SampleLinesView(QWidget* parent = nullptr);

    void setLines(std::vector<SampleLine> lines);

    [[nodiscard]] const SampleLinesModel& lines() const { return *m_model; }

    /// Brings a line, counted from 1, into view.
    void showLine(qint64 line);

  Q_SIGNALS:
    /// The line, counted from 1, is to have that role: Headings, Units or Data.
    void roleWanted(qint64 line, LineRole role);

  private:
    void addRoleAction(const QString& text, LineRole role);

    SampleLinesModel* m_model;
};

} // namespace pellam
