#include "app/StayOpen.h"

namespace quillon {

bool StayOpen::Gone() {
    if (!state_.marks.StayOpen.value_or(false)) {
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
