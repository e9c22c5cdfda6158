#include "database/ui/LoadCall.h"

#include "ui/dialogs/CConnectionStatus.h"

namespace pellam {

bool LoadCall::whileWaiting() {
    m_progress.handleEvents();
    return !m_progress.Aborted();
}

} // namespace pellam
