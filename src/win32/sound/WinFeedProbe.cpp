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

const FeedAnswer NoRoom{Finding::Fails, "The system has no room to try it"};

} // namespace

/// What a thread and the one who waits for it share.
struct WinFeedProbe::Try {
    void Run(const std::string& address, const std::string& user_agent);

    WinPlayerSystem system;
    std::atomic<bool> cancelled = false;
    std::mutex mutex;
    std::condition_variable changed;
    std::optional<FeedAnswer> answer;
};

void WinFeedProbe::Try::Run(const std::string& address, const std::string& user_agent) {
    FeedAnswer found = NoRoom;
    try {
        found = AddressProbe(user_agent, system, cancelled).Try(address);
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
    if (!last_) return;
    std::unique_lock lock(last_->mutex);
    last_->changed.wait_for(lock, ShutdownTimeout, [this] { return last_->answer.has_value(); });
}

void WinFeedProbe::Start(const std::string& address, const std::string& user_agent) {
    Cancel();
    last_ = try_ = std::make_shared<Try>();
    try {
        std::thread([its = try_, address, name = IsUserAgent(user_agent) ? user_agent : own_name_] {
            its->Run(address, name);
        }).detach();
    } catch (const std::system_error&) {
        try_->answer = NoRoom;
    }
}

std::optional<FeedAnswer> WinFeedProbe::Result() {
    if (!try_) return std::nullopt;
    const std::lock_guard lock(try_->mutex);
    if (try_->answer) try_.reset(); // last_ keeps it alive
    return try_ ? std::nullopt : last_->answer;
}

void WinFeedProbe::Cancel() {
    const std::shared_ptr<Try> ended = std::exchange(try_, nullptr);
    if (!ended) return;
    ended->cancelled = true;
    ended->system.Wake();
}

} // namespace quillon
