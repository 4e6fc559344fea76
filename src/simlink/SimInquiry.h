#pragma once

#include <functional>

namespace quillon {

/// How a handler asks the simulator, which may take long to answer.
class SimInquiry {
  public:
    virtual ~SimInquiry() = default;

    /// The handler's last call. `question` runs beside the window's thread, so it uses only the link and what
    /// is its own. `then` is the rest of the handler; until it has run, no other handler does, but the window
    /// lives. If the program ends first, `then` never runs.
    virtual void Ask(std::function<void()> question, std::function<void()> then) = 0;
};

} // namespace quillon
