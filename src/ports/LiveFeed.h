#pragma once

#include "ports/MediaPlayer.h"
#include "state/FeedCondition.h"
#include "state/FileServers.h"
#include "state/SoundSettings.h"

#include <string>

namespace quillon {

/// What a player of live feeds offers beyond playing. No call waits for the network or serves window events.
class LiveFeed {
  public:
    virtual ~LiveFeed() = default;

    /// What the station says it is playing: one line of at most 120 characters without control characters.
    /// Empty if no feed plays or the station says nothing.
    virtual std::string Title() const = 0;

    /// Why the address is not heard, and when it is tried again.
    virtual FeedCondition Condition() const { return {}; }

    /// Reconnects at once, even to an address that was given up or is waiting to be retried. A paused or
    /// stopped feed stays silent. Does nothing without an address.
    virtual void Reload() = 0;

    /// Sets the user agent for the connections to come. A text that is empty, longer than 200 characters, or
    /// contains anything but printable ASCII is ignored.
    virtual void SetUserAgent(const std::string& user_agent) = 0;

    /// Servers on which the entries of local playlists may open files, besides the playlist's own.
    virtual void SetFileServers(const FileServers&) {}

    /// For the addresses to come, if there is a choice of players.
    virtual void Force(ForcedPlayer) {}
};

/// Plays feeds of all kinds, and files.
class FeedPlayer : public MediaPlayer, public LiveFeed {};

} // namespace quillon
