#pragma once

#include "ports/FeedProbe.h"

#include <memory>

namespace quillon {

/// Tries each address on a thread of its own, which outlives what it was for when it hangs in the system.
class WinFeedProbe : public FeedProbe {
  public:
    /// Servers are told "Quillon/" and `program_version` unless Start says otherwise.
    explicit WinFeedProbe(const std::string& program_version) : own_name_("Quillon/" + program_version) {}

    /// Waits for the last thread, but not for one that hangs.
    ~WinFeedProbe() override;

    void Start(const std::string& address, const std::string& user_agent) override;
    std::optional<FeedAnswer> Result() override;
    void Cancel() override;

  private:
    struct Try;

    std::string own_name_;
    std::shared_ptr<Try> try_; // null when nobody waits for its answer
    std::shared_ptr<Try> last_;
};

} // namespace quillon
