#pragma once

#include "ports/SoundDevices.h"

#include <windows.h>

#include <atomic>
#include <memory>
#include <mmsystem.h>
#include <mutex>

namespace quillon {

/// The wave device that the user has chosen. Shared with the threads that play.
class ChosenDevice {
  public:
    void Set(const std::string& id);

    /// Looks the device up for waveOutOpen, whose numbers differ from process to process and from time to time.
    UINT Number();

    /// Changes with each Set.
    int Revision() const { return revision_; }

    /// Whether the latest look-up did not find it.
    bool IsMissing() const { return is_missing_; }

  private:
    std::mutex mutex_;
    std::string id_;
    std::atomic<int> revision_ = 0;
    std::atomic<bool> is_missing_ = false;
};

/// The wave devices. Works on a thread that has an apartment.
class WinSoundDevices : public SoundDevices {
  public:
    std::vector<SoundDevice> List() override;
    void Use(const std::string& id) override { chosen_->Set(id); }
    bool IsMissing() override { return chosen_->IsMissing(); }

    const std::shared_ptr<ChosenDevice>& Chosen() const { return chosen_; }

  private:
    std::shared_ptr<ChosenDevice> chosen_ = std::make_shared<ChosenDevice>();
};

} // namespace quillon
