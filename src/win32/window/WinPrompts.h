#pragma once

#include "ports/Dialogs.h"
#include "ports/Prompts.h"

#include <windows.h>

#include <functional>

namespace quillon {

class WinPrompts : public Prompts {
  public:
    /// `owner` updates the windows and returns the one that owns a box, and is disabled meanwhile.
    explicit WinPrompts(std::function<HWND()> owner) : owner_(std::move(owner)) {}

    void Message(const std::string& title, const std::string& text, Icon icon) override;
    std::string InputBox(const std::string& title, const std::string& prompt,
                         const std::string& default_answer) override;
    bool Confirm(const std::string& title, const std::string& text, Choices choices) override;
    std::string BrowseFile(const std::string& description, const std::string& pattern,
                           const std::string& folder) override;

  private:
    std::function<HWND()> owner_;
};

class WinDialogs : public Dialogs {
  public:
    explicit WinDialogs(std::function<HWND()> owner) : owner_(std::move(owner)) {}

    std::optional<int> MuteKey(int key) override;
    bool About() override;
    std::string ProgramFolders(const Folders& folders) override;

  private:
    std::function<HWND()> owner_;
};

} // namespace quillon
