#pragma once

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>

namespace quillon {

class Session;

/// A pool of threads for sessions. Creating a thread is too slow for callers that must not wait: idle threads
/// are kept, and a thread that starts a session first makes sure that there is another idle one. The threads
/// share ownership of this object, because one that hangs outlives the player.
class SessionThreads : public std::enable_shared_from_this<SessionThreads> {
  public:
    /// Creates the first thread, so that not even the first session has to wait for one.
    void Open();

    /// Runs the session on an idle thread, or a new one. Throws std::system_error if none can be created.
    void Run(std::shared_ptr<Session> session);

    /// Ends the idle threads and waits for all to end, for ShutdownTimeout at most.
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
