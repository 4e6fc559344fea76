#pragma once

#include "ports/FeedProbe.h"

#include <memory>

namespace quillon {

/// Tries each address on a thread of its own. A thread that hangs in a system call outlives this object.
class WinFeedProbe : public FeedProbe {
  public:
    /// The user agent is "Quillon/" and `program_version` unless Start is given another.
    explicit WinFeedProbe(const std::string& program_version) : own_name_("Quillon/" + program_version) {}

    /// Cancels and waits for the latest thread, for ShutdownTimeout at most.
    ~WinFeedProbe() override;

    void Start(const std::string& address, const std::string& user_agent, const FileServers& servers) override;
    std::optional<FeedAnswer> Result() override;
    void Cancel() override;

  private:
    struct Job;

    std::string own_name_;
    std::shared_ptr<Job> current_; // null if nobody waits for a result
    std::shared_ptr<Job> latest_;
};

} // namespace quillon
