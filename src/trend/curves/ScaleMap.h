#pragma once

namespace pellam {

/// Maps values to pixels and back along one axis, linearly or logarithmically. Any pair of bounds
/// gives a range that can be drawn: equal ones are widened, reversed ones swapped, infinite ones
/// bounded, those that are no number (or, logarithmically, not above zero) replaced.
class ScaleMap {
  public:
    ScaleMap() = default;
    /// pixelAtMin and pixelAtMax are where the drawn range's lower and upper bound lie.
    ScaleMap(double min, double max, bool logarithmic, double pixelAtMin, double pixelAtMax);

    double min() const { return m_min; }

    double max() const { return m_max; }

    bool logarithmic() const { return m_logarithmic; }

    double pixelAtMin() const { return m_pixelAtMin; }

    double pixelAtMax() const { return m_pixelAtMax; }

    /// The same range over other pixels.
    ScaleMap over(double pixelAtMin, double pixelAtMax) const;

    /// Pixel of a value, beyond the ends too (kept within a million pixels). Logarithmically,
    /// values at or below zero lie far beyond the lower end.
    double toPixel(double value) const {
        return m_logarithmic ? logarithmicPixel(value)
                             : bounded(m_pixelAtMin + (value - m_origin) * m_factor);
    }

    double toValue(double pixel) const;

    /// Bounds of the range after zooming by a factor (below 1 = closer) around a pixel, or after
    /// moving by a number of pixels.
    struct Bounds {
        double min;
        double max;
    };

    Bounds zoomed(double factor, double aroundPixel) const;
    Bounds moved(double pixels) const;

  private:
    void setLinear(double min, double max);
    void setLogarithmic(double min, double max);
    double logarithmicPixel(double value) const;

    static double bounded(double pixel) {
        return pixel < -farPixel ? -farPixel : pixel > farPixel ? farPixel : pixel;
    }

    static constexpr double farPixel = 1e6;

    double m_min = 0;
    double m_max = 1;
    bool m_logarithmic = false;
    double m_pixelAtMin = 0;
    double m_pixelAtMax = 1;
    double m_origin = 0; ///< min, or its logarithm
    double m_factor = 1; ///< pixels per unit, or per e-fold
};

} // namespace pellam
