#pragma once

#include "database/odbc/BackgroundCall.h"

namespace pellam {

class CConnectionStatus;

/// Waits for a database under the progress window, which can stop the waiting.
class LoadCall : public BackgroundCall {
  public:
    /// `progress` is running during every call and outlives this object.
    explicit LoadCall(CConnectionStatus& progress) : m_progress(progress) {}

  protected:
    bool whileWaiting() override;

  private:
    CConnectionStatus& m_progress;
};

} // namespace pellam
