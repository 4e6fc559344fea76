#pragma once

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>

namespace quillon {

class Session;

/// The threads that sessions run on. Making one takes a system call that is too slow for a caller who may not
/// wait: they are kept for the next session, and one that begins a session first sees to it that another is
/// free for the next caller. They share this object, because one that hangs outlives the player.
class SessionThreads : public std::enable_shared_from_this<SessionThreads> {
  public:
    /// Makes the first thread, so that not even the first session has to wait for one.
    void Open();

    /// Runs the session at once. Raises std::system_error when the system gives no more threads.
    void Run(std::shared_ptr<Session> session);

    /// Lets the threads end, and waits for them, but for half a second at most.
    void Close();

  private:
    void AddThread(std::unique_lock<std::mutex>& lock);
    void KeepOneFree(std::unique_lock<std::mutex>& lock);
    void Work();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::shared_ptr<Session>> waiting_;
    std::size_t idle_ = 0;
    std::size_t threads_ = 0;
    bool closed_ = false;
};

} // namespace quillon
