#include "win32/sound/WinFeedProbe.h"

#include "player/AddressProbe.h"
#include "player/Limits.h"
#include "runtime/RuntimeError.h"
#include "win32/sound/WinPlayerSystem.h"

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

WinFeedProbe::~WinFeedProbe() {
    Cancel();
    if (!latest_) return;
    std::unique_lock lock(latest_->mutex);
    latest_->changed.wait_for(lock, ShutdownTimeout, [this] { return latest_->answer.has_value(); });
}

void WinFeedProbe::Start(const std::string& address, const std::string& user_agent,
                         const FileServers& servers) {
    Cancel();
    latest_ = current_ = std::make_shared<Job>();
    try {
        std::thread([its = current_, address, servers,
                     name = IsUserAgent(user_agent) ? user_agent : own_name_] {
            its->Run(address, name, servers);
        }).detach();
    } catch (const std::system_error&) {
        current_->answer = NoRoom;
    }
}

std::optional<FeedAnswer> WinFeedProbe::Result() {
    if (!current_) return std::nullopt;
    const std::lock_guard lock(current_->mutex);
    if (current_->answer) current_.reset(); // latest_ keeps it alive
    return current_ ? std::nullopt : latest_->answer;
}

void WinFeedProbe::Cancel() {
    const std::shared_ptr<Job> ended = std::exchange(current_, nullptr);
    if (!ended) return;
    ended->cancelled = true;
    ended->system.Wake();
}

} // namespace quillon
