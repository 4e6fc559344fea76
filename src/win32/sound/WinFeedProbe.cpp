#include "win32/sound/WinFeedProbe.h"

#include "player/AddressProbe.h"
#include "player/Limits.h"
#include "runtime/RuntimeError.h"
#include "win32/sound/WinPlayerSystem.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace quillon {

namespace {

const FeedAnswer NoRoom{Finding::Fails, WordsOf(SilenceReason{SilenceCause::NoRoom, ""})};

} // namespace

/// Shared by a thread and whoever waits for its result.
struct WinFeedProbe::Job {
    void Run(const std::string& address, const std::string& user_agent, const FileServers& servers);
    std::optional<FeedAnswer> Answer();
    void Cancel();

    WinPlayerSystem system;
    std::atomic<bool> cancelled = false;
    std::mutex mutex;
    std::condition_variable changed;
    std::optional<FeedAnswer> answer;
};

void WinFeedProbe::Job::Run(const std::string& address, const std::string& user_agent,
                            const FileServers& servers) {
    FeedAnswer found = NoRoom;
    try {
        found = AddressProbe(user_agent, servers, system, cancelled).Try(address);
    } catch (const std::exception&) {
        // Out of memory.
    } catch (const RuntimeError& error) {
        found.Words = error.Description;
    }
    const std::lock_guard lock(mutex);
    answer = std::move(found);
    changed.notify_all();
}

std::optional<FeedAnswer> WinFeedProbe::Job::Answer() {
    const std::lock_guard lock(mutex);
    return answer;
}

void WinFeedProbe::Job::Cancel() {
    cancelled = true;
    system.Wake();
}

class WinFeedProbe::Try : public FeedTry {
  public:
    explicit Try(std::shared_ptr<Job> job) : job_(std::move(job)) {}
    ~Try() override { job_->Cancel(); }

    std::optional<FeedAnswer> Answer() override { return job_->Answer(); }

  private:
    std::shared_ptr<Job> job_;
};

WinFeedProbe::~WinFeedProbe() {
    const auto deadline = std::chrono::steady_clock::now() + ShutdownTimeout;
    for (const auto& job : jobs_) job->Cancel();
    for (const auto& job : jobs_) {
        std::unique_lock lock(job->mutex);
        job->changed.wait_until(lock, deadline, [&] { return job->answer.has_value(); });
    }
}

std::unique_ptr<FeedTry> WinFeedProbe::Start(const std::string& address, const std::string& user_agent,
                                             const FileServers& servers) {
    std::erase_if(jobs_, [](const auto& job) { return job->Answer().has_value(); });
    const auto job = std::make_shared<Job>();
    try {
        std::thread([job, address, servers, name = IsUserAgent(user_agent) ? user_agent : own_name_] {
            job->Run(address, name, servers);
        }).detach();
        jobs_.push_back(job);
    } catch (const std::system_error&) {
        job->answer = NoRoom;
    }
    return std::make_unique<Try>(job);
}

} // namespace quillon
