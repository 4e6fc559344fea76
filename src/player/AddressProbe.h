#pragma once

#include "player/HttpStream.h"
#include "player/Playlists.h"
#include "ports/FeedProbe.h"

#include <atomic>
#include <string>

namespace quillon {

/// Tries whether an address of the catalogue leads to sound, as the built-in player would find it, but plays
/// nothing.
class AddressProbe {
  public:
    /// Without sound for so long, an address is given up.
    static constexpr std::chrono::seconds LongestWait{10};

    /// `cancelled` ends the trying soon; the system is to be woken for it.
    AddressProbe(std::string user_agent, PlayerSystem& system, const std::atomic<bool>& cancelled)
        : user_agent_(std::move(user_agent)), system_(system), cancelled_(cancelled) {}

    /// `url` is the address of a stream, the path of a playlist, or a folder of recordings. May take some ten
    /// seconds for each address that it leads to.
    FeedAnswer Try(const std::string& url);

  private:
    /// What came of listening to a source.
    struct Heard {
        Supply Last = Supply::NothingYet; ///< why there was no more
        bool Sound = false;
        bool Bytes = false;
        std::optional<std::string> Playlist;
    };

    FeedAnswer TryPlayable(const std::string& url, int depth);
    FeedAnswer TryFile(const std::string& path, int depth);
    FeedAnswer TryStream(const std::string& url, int depth);
    FeedAnswer TryEntries(const std::string& playlist, const std::string& from, int depth);
    Heard Listen(ByteSource& source);

    std::string user_agent_;
    PlayerSystem& system_;
    const std::atomic<bool>& cancelled_;
};

} // namespace quillon
