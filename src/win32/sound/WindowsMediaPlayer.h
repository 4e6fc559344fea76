#pragma once

#include "player/RetrySchedule.h"
#include "ports/LiveFeed.h"
#include "ports/MediaPlayer.h"
#include "win32/sound/ControlEvents.h"

#include <optional>

struct IWMPCore;
struct IWMPControls;
struct IWMPSettings;

namespace quillon {

/// The Windows Media Player control, without a window. It works on the thread that makes it, which must serve
/// its messages. Where the control or a part of it is missing, calls do nothing.
class WindowsMediaPlayer : public MediaPlayer, public LiveFeed {
  public:
    WindowsMediaPlayer();
    ~WindowsMediaPlayer() override;

    WindowsMediaPlayer(const WindowsMediaPlayer&) = delete;
    WindowsMediaPlayer& operator=(const WindowsMediaPlayer&) = delete;

    /// Whether the system has the control at all.
    bool Exists() const;

    /// Whether it is a whole one, whose play state can be read.
    bool Answers();

    void SetUrl(const std::string& url) override;
    PlayState State() override;
    void Play() override;
    void Pause() override;
    void Stop() override;
    void SetVolume(int volume) override;

    /// The control keeps a station's title to itself, and tells servers its own name.
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
    std::optional<PlayState> shown_; // what we know better than the control
    RetrySchedule retries_;          // in ticks
    RetrySchedule::Time first_sound_by_{0};
};

} // namespace quillon
