#pragma once

#include <QSpinBox>

namespace pellam {

/// Edits an axis number: up from 6 comes 1, down from 1 stays 1; any number can be typed, one out
/// of range counts as 1.
class AxisSpinBox : public QSpinBox {
    Q_OBJECT
  public:
    explicit AxisSpinBox(QWidget* parent = nullptr);

    /// The axis that the text in the field stands for.
    [[nodiscard]] int axis() const;

    void stepBy(int steps) override;

  protected:
    StepEnabled stepEnabled() const override;
};

} // namespace pellam
