#include "playback/Notices.h"

namespace quillon {

void Notices::Show(const Notice& notice) {
    texts_.ShowNotice(notice);
    shown_at_ = clock_.Now();
}

void Notices::Expire() {
    if (!shown_at_) return;
    const auto passed = clock_.Now() - *shown_at_;
    if (passed >= std::chrono::seconds(0) && passed < std::chrono::seconds(10))
        return; // below 0: the clock was set
    shown_at_.reset();
    texts_.ShowNotice({});
}

} // namespace quillon
