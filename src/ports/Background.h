#pragma once

#include <functional>

namespace quillon {

/// A thread beside the window's, for work that may have to wait.
class Background {
  public:
    virtual ~Background() = default;

    /// Runs `work` beside the window's thread, after all work that was started before, and then `done` on the
    /// window's thread while it serves events.
    virtual void Start(std::function<void()> work, std::function<void()> done) = 0;

    /// Whether work is under way.
    virtual bool Busy() = 0;
};

} // namespace quillon
