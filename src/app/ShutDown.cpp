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
    link_.Cancel();
    if (!background_.Busy()) link_.FsuipcClose(); // else it goes with the process
    player_.Stop();
    form_.Visible = false;
}

} // namespace quillon
