#pragma once

namespace pellam {

inline constexpr int kFirstAxis = 1;
inline constexpr int kLastAxis = 6;

/// The axis number that a typed number stands for: itself from 1 to 6, anything else is 1.
constexpr int axisFromTyped(long long number) {
    return number < kFirstAxis || number > kLastAxis ? kFirstAxis : static_cast<int>(number);
}

/// The axis after one step of the spin button: up from 6 comes 1, down from 1 stays 1.
constexpr int axisAfterStep(int axis, bool up) {
    return axisFromTyped(up ? axis + 1LL : axis - 1LL);
}

} // namespace pellam
