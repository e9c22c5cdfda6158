#pragma once

#include "views/grid/GridFinder.h"

#include <QDialog>

QT_BEGIN_NAMESPACE
class QLabel;
class QLineEdit;
QT_END_NAMESPACE

namespace pellam {

/// Asks for a row number or a time and stays open until there is such a row.
class GoToDialog : public QDialog {
    Q_OBJECT
  public:
    /// `grid` and `settings` must outlive the dialog. `current` is the row to search from where
    /// that matters.
    GoToDialog(const GridData& grid, const InternationalSettings& settings, Row current,
               QWidget* parent = nullptr);

    /// The data row to go to, once the dialog was accepted.
    [[nodiscard]] Row row() const { return m_row; }

    void accept() override;

  private:
    [[nodiscard]] QString timeOf(Row row) const;
    [[nodiscard]] QString explain(RowLocator::State why) const;

    const GridData& m_grid;
    TimeForm m_form; ///< of its times; none where it has no times
    GridFinder m_finder;
    Row m_current;
    QLineEdit* m_wanted;
    QLabel* m_remark;
    Row m_row = 0;
};

} // namespace pellam
