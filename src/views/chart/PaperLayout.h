#pragma once

namespace pellam {

class TrendOperations;

/// Gives a chart its layout for paper, a picture and the clipboard, and the one before when it
/// goes: no buttons, no docked scales, white backgrounds.
class PaperLayout {
  public:
    /// `lock`: whether drawing is suspended meanwhile.
    explicit PaperLayout(TrendOperations& trend, bool lock = true);
    ~PaperLayout();
    PaperLayout(const PaperLayout&) = delete;
    PaperLayout& operator=(const PaperLayout&) = delete;

  private:
    TrendOperations& m_trend;
    bool m_lock;
};

} // namespace pellam
