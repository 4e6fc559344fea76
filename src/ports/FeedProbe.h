#pragma once

#include "state/FileServers.h"
#include "state/Forms.h"

#include <optional>
#include <string>

namespace quillon {

/// The outcome of trying a feed's address.
struct FeedAnswer {
    Finding Kind;
    std::string Words; ///< for the user
};

/// Tries addresses of feeds, one at a time, in the background. No call blocks.
class FeedProbe {
  public:
    virtual ~FeedProbe() = default;

    /// Starts trying a feed's address as the catalogue has it, and cancels the previous try. An invalid
    /// `user_agent` is replaced by the program's own. Local playlists may lead to `servers`.
    virtual void Start(const std::string& address, const std::string& user_agent,
                       const FileServers& servers) = 0;

    /// Empty until the answer is there; returns it once.
    virtual std::optional<FeedAnswer> Result() = 0;

    /// Cancels the try, if one is running.
    virtual void Cancel() = 0;
};

} // namespace quillon
