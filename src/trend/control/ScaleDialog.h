#pragma once

#include "trend/curves/TrendState.h"
#include "trend/reading/BoundText.h"

#include <QDialog>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
QT_END_NAMESPACE

namespace pellam {

/// Title, shown range and kind of one Y scale.
class ScaleDialog : public QDialog {
    Q_OBJECT
  public:
    /// `axis` is 1 to 6.
    ScaleDialog(int axis, const TrendState& state, QWidget* parent);

    /// The scale with what was entered.
    TrendScale scale() const;

  private:
    void check();

    TrendScale m_scale;
    BoundTexts m_given;
    QLineEdit* m_title;
    QLineEdit* m_min;
    QLineEdit* m_max;
    QCheckBox* m_logarithmic;
    QLabel* m_fault;
    QDialogButtonBox* m_buttons;
};

} // namespace pellam
