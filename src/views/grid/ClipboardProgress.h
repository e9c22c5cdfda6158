#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>

namespace pellam {

/// How far work on many cells is, shown when it takes long, with a button to stop it. Meanwhile
/// the window takes no input.
class ClipboardProgress : public QProgressDialog {
    Q_OBJECT
  public:
    ClipboardProgress(const QString& text, std::int64_t cells, QWidget* parent);

    /// So many cells more are done. False when the person has asked to stop.
    bool advance(std::int64_t cells);

  private:
    std::int64_t m_all;
    std::int64_t m_done = 0;
    std::int64_t m_unseen = 0; ///< cells since the clock was last looked at
    QElapsedTimer m_clock;
};

} // namespace pellam
