#pragma once

namespace pellam {

class TrendOperations;

/// Keeps a chart laid out for paper, a picture and the clipboard as long as it lives, and brings
/// the layout before back when it goes: no buttons, no docked scales, white backgrounds.
class PaperGuard {
  public:
    /// `lock`: whether drawing is suspended meanwhile.
    explicit PaperGuard(TrendOperations& trend, bool lock = true);
    ~PaperGuard();
    PaperGuard(const PaperGuard&) = delete;
    PaperGuard& operator=(const PaperGuard&) = delete;

  private:
    TrendOperations& m_trend;
    bool m_lock;
};

} // namespace pellam
