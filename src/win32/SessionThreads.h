#pragma once

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>

namespace quillon {

class Session;

/// The threads that sessions run on. They are kept for the next session, because making one takes a system call
/// that is too slow for a caller who may not wait; they share this object, because one that hangs outlives the
/// player.
class SessionThreads : public std::enable_shared_from_this<SessionThreads> {
  public:
    /// Runs the session at once. Raises std::system_error when the system gives no more threads.
    void Run(std::shared_ptr<Session> session);

    /// Lets the threads end, and waits for them, but for half a second at most.
    void Close();

  private:
    void AddThread();
    void Work();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::shared_ptr<Session>> waiting_;
    std::size_t idle_ = 0;
    std::size_t threads_ = 0;
    bool closed_ = false;
};

} // namespace quillon
