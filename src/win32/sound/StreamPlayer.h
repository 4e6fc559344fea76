#pragma once

#include "player/SessionPlayer.h"

namespace quillon {

class SessionThreads;

/// The built-in player on Windows' sockets, codecs and wave device, its sessions on threads of their own.
class StreamPlayer : public SessionPlayer {
  public:
    /// Servers are told "Quillon/" and `program_version` unless SetUserAgent says otherwise.
    explicit StreamPlayer(const std::string& program_version);

    /// Silence; then waits for the sessions' threads, but not for one that hangs.
    ~StreamPlayer() override;

  private:
    StreamPlayer(const std::string& program_version, std::shared_ptr<SessionThreads> threads);

    std::shared_ptr<SessionThreads> threads_;
};

} // namespace quillon
