#pragma once

#include "player/Playlists.h"
#include "player/Reach.h"
#include "state/FeedCondition.h"
#include "state/FileServers.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// Visits an address and, wherever a playlist is found, the entries of that playlist, in order and before
/// whatever follows it.
class PlaylistWalk {
  public:
    /// Playlists may be nested this deep.
    static constexpr std::size_t DeepestPlaylist = 3;

    struct Stop {
        std::string entry; ///< as the playlist has it
        std::optional<std::string>
            address;           ///< where it leads: an address or a path; nothing if it cannot be played
        std::size_t depth;     ///< number of playlists around it
        SilenceReason problem; ///< why it must not be tried
        Origin origin;
    };

    /// Local playlists may lead to files on `servers`, too. Only the first `most_entries` of each playlist are
    /// visited.
    PlaylistWalk(const std::string& address, FileServers servers,
                 std::size_t most_entries = static_cast<std::size_t>(-1));

    /// What to try next. Nothing at the end.
    std::optional<Stop> Next();

    /// The stop visited last is a playlist of those bytes, which came from the address or path `from`;
    /// `origin` is that of its entries. They are tried next. Returns the reason if nothing in the list can be
    /// tried.
    SilenceReason Enter(std::string_view bytes, const std::string& from, Origin origin);

  private:
    FileServers servers_;
    std::size_t most_entries_;
    std::size_t depth_ = 0;     // of the stop visited last
    std::vector<Stop> pending_; // the next one is the last
};

} // namespace quillon
