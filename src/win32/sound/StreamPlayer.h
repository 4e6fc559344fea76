#pragma once

#include "player/SessionPlayer.h"

namespace quillon {

class ChosenDevice;
class SessionThreads;

/// The built-in player on Windows' sockets, codecs and wave devices.
class StreamPlayer : public SessionPlayer {
  public:
    /// The user agent is "Quillon/" and `program_version` unless SetUserAgent changes it.
    StreamPlayer(const std::string& program_version, const std::shared_ptr<ChosenDevice>& device);

    /// Stops playing and waits for the sessions' threads, for ShutdownTimeout at most.
    ~StreamPlayer() override;

  private:
    StreamPlayer(const std::string& program_version, const std::shared_ptr<ChosenDevice>& device,
                 std::shared_ptr<SessionThreads> threads);

    std::shared_ptr<SessionThreads> threads_;
};

} // namespace quillon
