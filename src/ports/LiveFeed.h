#pragma once

#include <string>

namespace quillon {

/// What a player of live feeds offers beyond playing. No call waits for the network, and none lets window
/// events in.
class LiveFeed {
  public:
    virtual ~LiveFeed() = default;

    /// What the station says is to be heard now: one line of at most 120 characters, none of them a control
    /// character. Empty while no feed plays, and for one that says nothing.
    virtual std::string Title() const = 0;

    /// Connects anew at once, even to an address that was given up or is waited for. What is paused stays
    /// paused and what is stopped stays stopped; does nothing without an address.
    virtual void Reload() = 0;

    /// What servers are told of the program, from the next connection on. A text that is empty, longer than 200
    /// characters, or holds anything but visible ASCII characters and blanks is ignored.
    virtual void SetUserAgent(const std::string& user_agent) = 0;
};

} // namespace quillon
