#include "app/ShutDown.h"

namespace quillon {

void ShutDown::Run() {
    if (state_.Ended) return;
    settings_.WriteIni();
    remembered_.Write();
    RunUnsaved();
}

void ShutDown::RunUnsaved() {
    if (state_.Ended) return;
    state_.Ended = true;
    regional_.Restore();
    link_.FsuipcClose();
    player_.Stop();
    state_.form.Visible = false;
}

} // namespace quillon
