#include "views/sheet/AxisSpinBox.h"

#include "views/sheet/AxisNumber.h"

#include <limits>

namespace pellam {

AxisSpinBox::AxisSpinBox(QWidget* parent) : QSpinBox(parent) {
    setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    setFrame(false);
    setKeyboardTracking(false);
}

int AxisSpinBox::axis() const {
    return axisFromTyped(value());
}

void AxisSpinBox::stepBy(int steps) {
    setValue(axisAfterStep(value(), steps > 0));
    selectAll();
}

QAbstractSpinBox::StepEnabled AxisSpinBox::stepEnabled() const {
    return value() > kFirstAxis ? StepUpEnabled | StepDownEnabled : StepEnabled(StepUpEnabled);
}

} // namespace pellam
