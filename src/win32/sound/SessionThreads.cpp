#include "win32/sound/SessionThreads.h"

#include "player/Limits.h"
#include "player/Session.h"

#include <system_error>
#include <thread>

namespace quillon {

namespace {

constexpr std::size_t MostIdle = 2; // one ends its session while the next one starts

} // namespace

void SessionThreads::Open() {
    std::unique_lock lock(mutex_);
    KeepOneFree(lock);
}

void SessionThreads::Run(std::shared_ptr<Session> session) {
    std::unique_lock lock(mutex_);
    if (idle_ <= waiting_.size()) AddThread(lock);
    waiting_.push_back(std::move(session));
    changed_.notify_all();
}

/// Counts the thread before it exists and unlocks while it is created, so that no other caller waits for that.
void SessionThreads::AddThread(std::unique_lock<std::mutex>& lock) {
    ++threads_;
    ++idle_;
    lock.unlock();
    try {
        std::thread([self = shared_from_this()] { self->Work(); }).detach();
        lock.lock();
    } catch (const std::system_error&) {
        lock.lock();
        --threads_;
        --idle_;
        throw;
    }
}

void SessionThreads::KeepOneFree(std::unique_lock<std::mutex>& lock) {
    if (closed_ || idle_ > waiting_.size()) return;
    try {
        AddThread(lock);
    } catch (const std::system_error&) {
        // The next Run tries again and reports it.
    }
}

void SessionThreads::Work() {
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return closed_ || !waiting_.empty(); });
        if (waiting_.empty()) break;
        const std::shared_ptr<Session> session = std::move(waiting_.front());
        waiting_.pop_front();
        --idle_;
        KeepOneFree(lock);
        lock.unlock();
        session->Run();
        lock.lock();
        if (++idle_ > MostIdle) break;
    }
    --idle_;
    --threads_;
    changed_.notify_all();
}

void SessionThreads::Close() {
    std::unique_lock lock(mutex_);
    closed_ = true;
    changed_.notify_all();
    changed_.wait_for(lock, ShutdownTimeout, [this] { return threads_ == 0; });
}

} // namespace quillon
