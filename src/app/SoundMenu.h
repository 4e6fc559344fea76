#pragma once

#include "playback/Notices.h"
#include "ports/SoundDevices.h"
#include "state/Forms.h"
#include "state/SoundSettings.h"

namespace quillon {

/// The choice of the sound device.
class SoundMenu {
  public:
    SoundMenu(SoundDeviceMenu& menu, SoundSettings& settings, SoundDevices& devices, Notices& notices)
        : menu_(menu), settings_(settings), devices_(devices), notices_(notices) {}

    /// Fills the menu with the devices that are there now.
    void Refresh();

    /// The user picked an entry of the menu: 0 for the default device, then the others. Others are ignored.
    void Pick(std::size_t entry);

    /// Tells the user, once, that the chosen device is gone. To be called several times a second.
    void Watch();

  private:
    SoundDeviceMenu& menu_;
    SoundSettings& settings_;
    SoundDevices& devices_;
    Notices& notices_;
    std::vector<SoundDevice> listed_;
    bool has_told_ = false;
};

} // namespace quillon
