#pragma once

#include "ports/FeedProbe.h"

#include <memory>
#include <vector>

namespace quillon {

/// Tries each address on a thread of its own. A thread that hangs in a system call outlives this object.
class WinFeedProbe : public FeedProbe {
  public:
    /// The user agent is "Quillon/" and `program_version` unless Start is given another.
    explicit WinFeedProbe(const std::string& program_version) : own_name_("Quillon/" + program_version) {}

    /// Ends all tries and waits for their threads, for ShutdownTimeout at most.
    ~WinFeedProbe() override;

    std::unique_ptr<FeedTry> Start(const std::string& address, const std::string& user_agent,
                                   const FileServers& servers) override;

  private:
    struct Job;
    class Try;

    std::string own_name_;
    std::vector<std::shared_ptr<Job>> jobs_; // whose threads may still run
};

} // namespace quillon
