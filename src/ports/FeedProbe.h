#pragma once

#include "state/Forms.h"

#include <optional>
#include <string>

namespace quillon {

/// What became of trying a feed's address.
struct FeedAnswer {
    Finding Kind;
    std::string Words; ///< for the user
};

/// Tries addresses of feeds, one at a time, in the background. No call waits.
class FeedProbe {
  public:
    virtual ~FeedProbe() = default;

    /// Begins to try what a feed's line has for its address, in place of what is being tried. `user_agent` is
    /// what servers are told; one that is unfit for that leaves the program's own name.
    virtual void Start(const std::string& address, const std::string& user_agent) = 0;

    /// Nothing while it is being tried; the answer is given once.
    virtual std::optional<FeedAnswer> Result() = 0;

    /// Forgets what is being tried.
    virtual void Cancel() = 0;
};

} // namespace quillon
