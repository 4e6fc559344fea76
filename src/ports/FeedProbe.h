#pragma once

#include "state/FileServers.h"
#include "state/Forms.h"

#include <memory>
#include <optional>
#include <string>

namespace quillon {

/// The outcome of trying a feed's address.
struct FeedAnswer {
    Finding Kind;
    std::string Words; ///< for the user
};

/// An address that is being tried. Ends the try when destroyed. No call blocks.
class FeedTry {
  public:
    virtual ~FeedTry() = default;

    /// Empty until the try has ended.
    virtual std::optional<FeedAnswer> Answer() = 0;
};

/// Tries addresses of feeds in the background, several at a time. No call blocks.
class FeedProbe {
  public:
    virtual ~FeedProbe() = default;

    /// Starts trying a feed's address as the catalogue has it. An invalid `user_agent` is replaced by the
    /// program's own. Local playlists may lead to `servers`.
    virtual std::unique_ptr<FeedTry> Start(const std::string& address, const std::string& user_agent,
                                           const FileServers& servers) = 0;
};

} // namespace quillon
