#include "app/ShutDown.h"

namespace quillon {

void ShutDown::Run() {
    if (ended_) return;
    settings_.WriteIni();
    remembered_.Write();
    RunUnsaved();
}

void ShutDown::RunUnsaved() {
    if (ended_) return;
    ended_ = true;
    regional_.Restore();
    link_.FsuipcClose();
    player_.Stop();
    form_.Visible = false;
}

} // namespace quillon
