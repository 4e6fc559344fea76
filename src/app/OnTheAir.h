#pragma once

#include "app/FeedListCommands.h"
#include "app/HandlerGate.h"
#include "playback/FeedsAround.h"
#include "ports/Clock.h"
#include "simlink/RadioReadout.h"
#include "state/Forms.h"
#include "state/PlaybackState.h"

#include <deque>
#include <string>

namespace quillon {

/// "On the air": the feeds in range of the aircraft, nearest first, while the program runs on. Looking changes
/// nothing; picking a feed does what it does in the list.
class OnTheAir {
  public:
    /// For so long the aircraft's track is kept, while the window is open.
    static constexpr std::chrono::minutes TrackLength{10};

    OnTheAir(OnTheAirForm& form, const PlaybackState& state, ListView& list, FeedsAround& around,
             FsuipcClient& link, RadioReadout& readout, HandlerGate& gate, FeedListCommands& commands,
             Clock& clock)
        : form_(form),
          state_(state),
          list_(list),
          around_(around),
          link_(link),
          readout_(readout),
          gate_(gate),
          commands_(commands),
          clock_(clock) {}

    /// Opens the window or brings it to the front.
    void Open();

    /// Renews what is shown. Uses the position that an automatic cycle has read; while none runs, asks for it.
    void Poll();

    /// The selection stays with the feed, wherever its row moves.
    void Select(const std::optional<OnTheAirForm::Feed>& feed);

    /// Selects the feed in the list. Then tunes the followed radio to it in Automatic mode, plays it in Manual
    /// mode.
    void Pick(const OnTheAirForm::Feed& feed);

    void Close() { form_.Visible = false; }

  private:
    struct Answer {
        bool open = false;
        SimReading reading;
    };
    struct TrackPoint {
        std::chrono::milliseconds when;
        GeoPoint where;
    };

    void Ask();
    void ShowAnswer(const Answer& answer);
    void ShowFrom(const std::string& latitude, const std::string& longitude);
    void ShowNothing(const std::string& why);
    void Show(std::vector<OnTheAirForm::Row> rows, std::vector<OnTheAirForm::Place> track, std::int32_t reach);
    void SelectPicked();
    OnTheAirForm::Row RowOf(const FeedAround& feed) const;
    OnTheAirForm::Mark MarkOf(const FeedRecord& record) const;
    std::vector<OnTheAirForm::Place> TrackTo(const GeoPoint& aircraft);
    std::string Heading(std::size_t feeds) const;

    OnTheAirForm& form_;
    const PlaybackState& state_;
    ListView& list_;
    FeedsAround& around_;
    FsuipcClient& link_;
    RadioReadout& readout_;
    HandlerGate& gate_;
    FeedListCommands& commands_;
    Clock& clock_;
    std::weak_ptr<Answer> asked_; // there while an answer is awaited
    std::optional<OnTheAirForm::Feed> selected_;
    std::deque<TrackPoint> track_;
};

} // namespace quillon
