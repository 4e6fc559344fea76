#include "app/StayOpen.h"

namespace quillon {

void StayOpen::Toggle() {
    state_.marks.StayOpen = !state_.marks.StayOpen;
    remembered_.Write();
}

bool StayOpen::Gone() {
    if (!state_.marks.StayOpen) {
        shut_down_.Run();
        return false;
    }
    settings_.WriteIni();
    remembered_.Write();
    state_.radio.SimLost = true;
    return true;
}

bool StayOpen::Back() {
    const std::string too_old = connection_.CheckVersion();
    if (!too_old.empty() && too_old != told_) prompts_.Message("Quillon", too_old, Icon::Critical);
    told_ = too_old;
    state_.radio.SimLost = !too_old.empty();
    return too_old.empty();
}

} // namespace quillon
