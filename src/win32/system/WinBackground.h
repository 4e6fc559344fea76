#pragma once

#include "ports/Background.h"

#include <windows.h>

#include <chrono>
#include <memory>

namespace quillon {

/// One thread, and a window without a face through which it tells the window's thread that work is done.
class WinBackground : public Background {
  public:
    /// `after` is called on the window's thread after each `done`.
    explicit WinBackground(std::function<void()> after);
    ~WinBackground() override;
    WinBackground(const WinBackground&) = delete;
    WinBackground& operator=(const WinBackground&) = delete;

    void Start(std::function<void()> work, std::function<void()> done) override;
    bool Busy() override;

    /// Waits that long at most for the work under way. Returns whether none is left; no `done` is called any
    /// more.
    bool Finish(std::chrono::milliseconds time);

  private:
    struct Jobs;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    static void Work(const std::shared_ptr<Jobs>& jobs);
    void ReportDone();

    std::shared_ptr<Jobs> jobs_; ///< shared with the thread, which may outlive this
    std::function<void()> after_;
    HWND window_ = nullptr;
};

} // namespace quillon
