#pragma once

#include "views/series/ClockChoice.h"

#include <QWidget>

QT_BEGIN_NAMESPACE
class QComboBox;
QT_END_NAMESPACE

namespace pellam {

/// The line under the chart in which its clock is chosen.
class ClockBar : public QWidget {
    Q_OBJECT
  public:
    explicit ClockBar(QWidget* parent = nullptr);

    /// The clock that is shown as chosen.
    void setClock(ClockChoice clock);
    [[nodiscard]] ClockChoice clock() const;

  Q_SIGNALS:
    /// A person has chosen a clock.
    void chosen(ClockChoice clock);

  private:
    QComboBox* m_choice;
};

} // namespace pellam
