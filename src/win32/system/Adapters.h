#pragma once

#include "ports/AnsiCodePage.h"
#include "ports/Clock.h"
#include "ports/Keyboard.h"
#include "ports/RegionalSettings.h"
#include "ports/Shell.h"
#include "ports/UserFiles.h"

#include <windows.h>

#include <functional>

namespace quillon {

// One adapter per port.

class WinClock : public Clock {
  public:
    /// `serve` handles messages for about that long; it returns false once the program is ending.
    explicit WinClock(std::function<bool(std::chrono::milliseconds)> serve) : serve_(std::move(serve)) {}

    TimePoint Now() override;
    std::chrono::milliseconds Uptime() override;
    void Sleep(std::chrono::milliseconds time) override;
    bool ServeEvents(std::chrono::milliseconds time) override { return serve_(time); }

  private:
    std::function<bool(std::chrono::milliseconds)> serve_;
};

class WinUserFiles : public UserFiles {
  public:
    explicit WinUserFiles(std::function<HWND()> owner) : owner_(std::move(owner)) {}

    void Delete2Recycle(const std::string& path) override;
    bool SetFileDateTime(const std::string& path, TimePoint local) override;

  private:
    std::function<HWND()> owner_;
};

class WinShell : public Shell {
  public:
    explicit WinShell(std::function<HWND()> owner) : owner_(std::move(owner)) {}

    std::string ApplicationDataFolder() override;
    std::string ProgramFolder() override;
    bool OpenAddress(const std::string& address) override;
    std::unique_ptr<StartedProgram> Start(const std::string& program, const std::string& file) override;
    void CopyText(const std::string& text) override;
    void PlaySoundFile(const std::string& path) override;

  private:
    std::function<HWND()> owner_;
};

class WinKeyboard : public Keyboard {
  public:
    bool IsDown(int virtual_key) override;
    bool IsInBox() override;
    bool IsOrWasDown(int virtual_key) override;
};

class WinRegionalSettings : public RegionalSettings {
  public:
    std::optional<std::string> Read(Separator separator) override;
    void Write(Separator separator, const std::string& text) override;
};

class WinCodePage : public AnsiCodePage {
  public:
    std::string Decode(std::string_view bytes) override;
    std::optional<std::string> Encode(std::string_view text) override;
};

} // namespace quillon
