#include "views/grid/ClipboardProgress.h"

#include <algorithm>

namespace pellam {

namespace {
constexpr int kSteps = 1000;
constexpr std::int64_t kCellsUnseen = 10'000;
constexpr qint64 kShowEvery = 40; // milliseconds
} // namespace

ClipboardProgress::ClipboardProgress(const QString& text, std::int64_t cells, QWidget* parent)
    : QProgressDialog(text, tr("Cancel"), 0, kSteps, parent),
      m_all(std::max<std::int64_t>(cells, 1)) {
    setWindowModality(Qt::WindowModal);
    setMinimumDuration(400);
    m_clock.start();
}

bool ClipboardProgress::advance(std::int64_t cells) {
    m_done += cells;
    m_unseen += cells;
    if (m_unseen < kCellsUnseen) return true;
    m_unseen = 0;
    if (m_clock.elapsed() < kShowEvery) return true;
    m_clock.restart();
    setValue(static_cast<int>(std::min(m_done, m_all - 1) * kSteps / m_all));
    return !wasCanceled();
}

} // namespace pellam
