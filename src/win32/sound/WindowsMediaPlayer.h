#pragma once

#include "player/RetrySchedule.h"
#include "ports/LiveFeed.h"
#include "win32/sound/ControlEvents.h"

#include <optional>

struct IWMPCore;
struct IWMPControls;
struct IWMPSettings;

namespace quillon {

/// The Windows Media Player control, without a window. Works on the thread that creates it, which must dispatch
/// messages. Calls have no effect if the control, or the part of it that they need, is missing.
class WindowsMediaPlayer : public FeedPlayer {
  public:
    WindowsMediaPlayer();
    ~WindowsMediaPlayer() override;

    WindowsMediaPlayer(const WindowsMediaPlayer&) = delete;
    WindowsMediaPlayer& operator=(const WindowsMediaPlayer&) = delete;

    /// Whether the system has the control at all.
    bool Exists() const;

    /// Whether it is complete and its play state can be read.
    bool Answers();

    void SetUrl(const std::string& url) override;
    PlayState State() override;
    void Play() override;
    void Pause() override;
    void Stop() override;
    void SetVolume(int volume) override;

    /// The control does not reveal stream titles, and sends a user agent of its own.
    std::string Title() const override { return {}; }
    void Reload() override;
    void SetUserAgent(const std::string&) override {}

  private:
    void Prepare();
    std::optional<PlayState> ReadState();
    PlayState ControlState();
    void GiveUp();
    void Open();
    bool IsAvailable(const wchar_t* command);

    ComPtr<IWMPCore> core_;
    ComPtr<IWMPControls> controls_;
    ComPtr<IWMPSettings> settings_;
    ComPtr<ControlEvents> events_;
    std::string url_;
    std::optional<PlayState> override_; // shown instead of the control's state
    RetrySchedule retries_;             // in ticks
    RetrySchedule::Time first_sound_by_{0};
};

} // namespace quillon
