#include "win32/SessionThreads.h"

#include "player/Session.h"

#include <thread>

namespace quillon {

using namespace std::chrono_literals;

namespace {

constexpr auto LongestFarewell = 500ms;
constexpr std::size_t MostIdle = 2; // one ends its session while the next one starts

} // namespace

void SessionThreads::Run(std::shared_ptr<Session> session) {
    const std::lock_guard lock(mutex_);
    if (idle_ <= waiting_.size()) AddThread();
    waiting_.push_back(std::move(session));
    changed_.notify_all();
}

void SessionThreads::AddThread() {
    std::thread([self = shared_from_this()] { self->Work(); }).detach();
    ++threads_;
    ++idle_;
}

void SessionThreads::Work() {
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return closed_ || !waiting_.empty(); });
        if (waiting_.empty()) break;
        const std::shared_ptr<Session> session = std::move(waiting_.front());
        waiting_.pop_front();
        --idle_;
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
    changed_.wait_for(lock, LongestFarewell, [this] { return threads_ == 0; });
}

} // namespace quillon
