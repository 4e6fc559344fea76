#pragma once

#include "catalogue/CatalogueReview.h"
#include "geo/AirportPositions.h"
#include "ports/AnsiCodePage.h"
#include "ports/Clock.h"
#include "ports/FeedProbe.h"
#include "runtime/ErrorTrap.h"
#include "state/Folders.h"
#include "state/Forms.h"
#include "state/PlaybackState.h"

namespace quillon {

/// The check of the catalogue: reviews its lines and tries the address of each feed in turn, while the program
/// runs on. It changes nothing.
class FeedCheck {
  public:
    /// An address that has neither answered nor failed by then counts as failed.
    static constexpr std::chrono::seconds LongestTry{90};

    FeedCheck(CheckFeedsForm& form, ListView& list, const Marks& marks, AirportPositions& airports,
              const Folders& folders, const std::string& user_agent, FeedProbe& probe, AnsiCodePage& page,
              Clock& clock, ErrorTrap& trap)
        : form_(form),
          list_(list),
          marks_(marks),
          airports_(airports),
          folders_(folders),
          user_agent_(user_agent),
          probe_(probe),
          page_(page),
          clock_(clock),
          trap_(trap) {}

    /// Opens the dialog and starts the check, unless it is running already.
    void CheckFeeds();

    /// Must be called often while the check runs.
    void Poll();

    /// Stops a running check and keeps its results; closes the dialog if none is running.
    void Cancel();

    /// The user closed the dialog from its title bar.
    void Close();

    /// Selects a result's feed in the list, if the list has it.
    void SelectFeed(std::size_t row);

  private:
    void Begin();
    void TryNext();
    void Record(const FeedAnswer& answer);
    void End(const std::string& how);
    std::string Summary() const;

    CheckFeedsForm& form_;
    ListView& list_;
    const Marks& marks_;
    AirportPositions& airports_;
    const Folders& folders_;
    const std::string& user_agent_;
    FeedProbe& probe_;
    AnsiCodePage& page_;
    Clock& clock_;
    ErrorTrap& trap_;
    std::vector<CatalogueReview::Feed> feeds_;
    TimePoint try_began_;
};

} // namespace quillon
