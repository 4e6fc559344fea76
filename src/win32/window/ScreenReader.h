#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace quillon {

/// Tells screen readers what the main window's controls do not tell by themselves. No effect where Windows
/// lacks the service for it.
class ScreenReader {
  public:
    explicit ScreenReader(HWND parent);

    /// Has a text read out, after what is being read.
    void Say(const std::string& text) const;

    /// Gives a part of a control, from 0, a name of its own.
    static void NamePart(HWND control, std::size_t part, const std::string& name);

    /// Has the parts of a control named by a function, which is called on this thread, whenever somebody asks.
    /// An empty name leaves the part's own.
    static void NameParts(HWND control, std::function<std::string(std::size_t)> name);

  private:
    HWND announcement_;
};

} // namespace quillon
