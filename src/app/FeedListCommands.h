#pragma once

#include "playback/ScreenTexts.h"
#include "playback/ShuffleBag.h"
#include "playback/TuningCheck.h"
#include "ports/MediaPlayer.h"
#include "ports/Prompts.h"
#include "ports/Shell.h"
#include "runtime/ErrorTrap.h"
#include "simlink/RadioTuning.h"
#include "state/ProgramState.h"

#include <optional>
#include <string>

namespace quillon {

/// What the user does with the list of feeds: sorting, searching, picking, and tuning the simulator from it.
class FeedListCommands {
  public:
    FeedListCommands(ProgramState& state, ScreenTexts& texts, MediaPlayer& player, ShuffleBag& bag,
                     Prompts& prompts, Shell& shell, RadioTuning& tuning, TuningCheck& tuning_check,
                     ErrorTrap& trap)
        : state_(state),
          texts_(texts),
          player_(player),
          bag_(bag),
          prompts_(prompts),
          shell_(shell),
          tuning_(tuning),
          tuning_check_(tuning_check),
          trap_(trap) {}

    /// A click on a column's header sorts by that column; a second click on it in a row reverses the order.
    void lvwDB_ColumnClick(Column column);

    /// A click on a row, or Enter: in Manual mode it picks the selected feed.
    void lvwDB_ItemClick();

    /// In Automatic mode, tunes the simulator's followed radio to the selected feed.
    void TuneFeed();

    void CopyAddress();

    /// A double click on a row; with Ctrl held down it is TuneFeed.
    void lvwDB_DblClick(bool control);

    void mnuSearch_Click();
    void mnuCitySearch_Click();

    /// Repeats the last search from the row after its hit, wrapping around at the end.
    void SearchAgain();

  private:
    enum class Kind { Icao, City };

    void Search(Kind kind, std::string text, std::size_t start);
    std::optional<std::size_t> Find(Kind kind, const std::string& text, std::size_t start) const;
    void ShowHit(std::size_t row, const std::string& text);
    void ClickListView();
    void PickSelectedFeed(const FeedRecord& picked);
    void PreferOnItsChannel(const FeedRecord& picked);
    void TuneToSelectedFeed();

    ProgramState& state_;
    ScreenTexts& texts_;
    MediaPlayer& player_;
    ShuffleBag& bag_;
    Prompts& prompts_;
    Shell& shell_;
    RadioTuning& tuning_;
    TuningCheck& tuning_check_;
    ErrorTrap& trap_;
    std::optional<Column> last_clicked_;
    Kind last_kind_ = Kind::Icao;
    std::string last_text_;
};

} // namespace quillon
