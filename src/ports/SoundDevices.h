#pragma once

#include <string>
#include <vector>

namespace quillon {

struct SoundDevice {
    std::string Id; ///< the same in every run
    std::string Name;
};

/// The sound devices that the built-in player can play on.
class SoundDevices {
  public:
    virtual ~SoundDevices() = default;

    virtual std::vector<SoundDevice> List() = 0;

    /// What plays moves to that device at once. An empty id stands for the system's default device, which also
    /// plays while the chosen one is not there.
    virtual void Use(const std::string& id) = 0;

    /// Whether the chosen device was not there when sound was last begun.
    virtual bool IsMissing() = 0;
};

} // namespace quillon
