#include "app/SoundMenu.h"

#include <utility>

namespace quillon {

void SoundMenu::Refresh() {
    listed_ = devices_.List();
    menu_ = {};
    for (const SoundDevice& device : listed_) {
        menu_.Names.push_back(device.Name);
        if (device.Id == settings_.Device) menu_.Checked = menu_.Names.size();
    }
}

void SoundMenu::Pick(std::size_t entry) {
    if (listed_.empty()) Refresh();
    if (entry > listed_.size()) return;
    const SoundDevice device = entry == 0 ? SoundDevice{} : listed_[entry - 1];
    settings_.Device = device.Id;
    settings_.DeviceName = device.Name;
    menu_.Checked = entry;
    devices_.Use(device.Id);
}

void SoundMenu::Watch() {
    const bool is_missing = devices_.IsMissing();
    if (is_missing && !std::exchange(has_told_, true))
        notices_.Show({NoticeKind::SoundDeviceGone, settings_.DeviceName});
    has_told_ = is_missing;
}

} // namespace quillon
