#pragma once

#include "player/SessionPlayer.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace quillon {

/// Plays everything with the built-in player, except addresses at which that one has found something that it
/// cannot play: those are handed to the Windows Media Player control, at once and for the rest of the run.
class TwoPlayers : public FeedPlayer {
  public:
    /// Makes the control; null if the system has none that answers. It must show PlayState::Transitioning from
    /// being given an address until that plays or fails.
    using MakeControl = std::function<std::unique_ptr<FeedPlayer>()>;

    /// `make_control` is called at most once, when the control is first needed.
    TwoPlayers(SessionPlayer& built_in, MakeControl make_control);

    TwoPlayers(const TwoPlayers&) = delete;
    TwoPlayers& operator=(const TwoPlayers&) = delete;

    void SetUrl(const std::string& url) override;
    PlayState State() override;
    void Play() override;
    void Pause() override;
    void FadeOut() override;
    void Stop() override;
    void SetVolume(int volume) override;

    std::string Title() const override { return active_->Title(); }
    FeedCondition Condition() const override;
    void Reload() override;
    void SetUserAgent(const std::string& user_agent) override { built_in_.SetUserAgent(user_agent); }
    void SetFileServers(const FileServers& servers) override { built_in_.SetFileServers(servers); }
    void Force(ForcedPlayer player) override { forced_ = player; }

  private:
    FeedPlayer* Control();
    FeedPlayer& PlayerFor(const std::string& url);
    void Learn();
    void HandOver();

    SessionPlayer& built_in_;
    MakeControl make_control_; // null once it has been called
    std::unique_ptr<FeedPlayer> control_;
    FeedPlayer* active_;
    ForcedPlayer forced_ = ForcedPlayer::None;
    std::string url_;
    int volume_ = 100;
    std::map<std::string, SilenceReason> unsupported_; // why the built-in player cannot play an address
};

} // namespace quillon
