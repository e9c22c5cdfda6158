#pragma once

#include "base/MessageSink.h"

class QWidget;

namespace pellam {

/// Shows messages as boxes over the main window.
class WindowMessages : public MessageSink {
  public:
    explicit WindowMessages(QWidget* window) : m_window(window) {}

    void show(std::string_view text) override;

  private:
    QWidget* m_window;
};

} // namespace pellam
