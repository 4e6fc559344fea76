#pragma once

#include "player/HttpStream.h"
#include "player/PlaylistWalk.h"
#include "ports/FeedProbe.h"

#include <atomic>
#include <string>

namespace quillon {

/// Finds out whether the built-in player could play an address of the catalogue, without playing it.
class AddressProbe {
  public:
    /// Set `cancelled` and then wake the system to end Try early.
    AddressProbe(std::string user_agent, FileServers servers, PlayerSystem& system,
                 const std::atomic<bool>& cancelled)
        : user_agent_(std::move(user_agent)),
          servers_(std::move(servers)),
          system_(system),
          cancelled_(cancelled) {}

    /// `url` is the address of a stream, the path of a playlist, or a folder of recordings. Takes up to
    /// StallTimeout for each address that it leads to.
    FeedAnswer Try(const std::string& url);

  private:
    /// What an address turned out to be.
    struct Visit {
        SilenceReason problem{};               ///< why it cannot be played
        std::string redirected_to{};           ///< empty if it is not redirected
        std::optional<std::string> playlist{}; ///< its bytes
        std::string from{};                    ///< the address or path that they came from
        Origin onward{};                       ///< of its entries
        bool not_encrypted = false;            ///< though a playlist was
    };

    /// What came of listening to a source.
    struct Heard {
        bool sound = false;
        SilenceReason problem;
        std::optional<std::string> playlist;
    };

    FeedAnswer TryPlayable(const std::string& url);
    Visit VisitStop(const PlaylistWalk::Stop& stop);
    Visit VisitFile(const std::string& path);
    Visit VisitStream(const PlaylistWalk::Stop& stop);
    Heard Listen(ByteSource& source);

    std::string user_agent_;
    FileServers servers_;
    PlayerSystem& system_;
    const std::atomic<bool>& cancelled_;
};

} // namespace quillon
