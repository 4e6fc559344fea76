#pragma once

#include "app/CatalogueReload.h"
#include "catalogue/FeedLoader.h"
#include "playback/FeedChoice.h"
#include "playback/ScreenTexts.h"
#include "ports/MediaPlayer.h"
#include "state/ListView.h"

namespace quillon {

/// Loads a changed catalogue under what plays: it plays on if its line is still there and, in Automatic mode,
/// the tuned frequency still leads to it. Otherwise Automatic mode retunes, and Manual mode stops.
class QuietReload {
  public:
    QuietReload(PlaybackState& state, ListView& list, FeedLoader& loader, CatalogueReload& reload,
                FeedChoice& choice, ScreenTexts& texts, MediaPlayer& player)
        : state_(state),
          list_(list),
          loader_(loader),
          reload_(reload),
          choice_(choice),
          texts_(texts),
          player_(player) {}

    /// Of the file from which the list was last loaded.
    const std::optional<FileStamp>& Loaded() const { return loader_.Loaded().Stamp; }

    /// Loads that version, unless it has the text that is loaded. The selected row stays selected, and the list
    /// sorted.
    void TakeUp(const TextVersion& version);

    /// Loads that version, or without a text the present one.
    void Reload(const TextVersion& version);

  private:
    bool GoesOn(const FeedState& feed);
    void StopFeed();

    PlaybackState& state_;
    ListView& list_;
    FeedLoader& loader_;
    CatalogueReload& reload_;
    FeedChoice& choice_;
    ScreenTexts& texts_;
    MediaPlayer& player_;
};

} // namespace quillon
