#pragma once

#include "catalogue/CatalogueReview.h"
#include "geo/AirportPositions.h"
#include "ports/AnsiCodePage.h"
#include "ports/Clock.h"
#include "ports/FeedProbe.h"
#include "ports/Shell.h"
#include "runtime/ErrorTrap.h"
#include "state/Folders.h"
#include "state/Forms.h"
#include "state/PlaybackState.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillon {

/// The check of the catalogue: reviews its lines and tries the addresses of its feeds, while the program runs
/// on. It changes nothing. Servers are strangers', so each is asked for one feed at a time.
class FeedCheck {
  public:
    /// An address that has neither answered nor failed by then counts as failed.
    static constexpr std::chrono::seconds LongestTry{90};

    static constexpr std::size_t MostTries = 8; // at a time
    static constexpr const char* ResultsName = "Check.txt";

    FeedCheck(CheckFeedsForm& form, ListView& list, const Marks& marks, AirportPositions& airports,
              const Folders& folders, const std::string& user_agent, FeedProbe& probe, Shell& shell,
              AnsiCodePage& page, Clock& clock, ErrorTrap& trap)
        : form_(form),
          list_(list),
          marks_(marks),
          airports_(airports),
          folders_(folders),
          user_agent_(user_agent),
          probe_(probe),
          shell_(shell),
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

    /// Selects a shown result's feed in the list, if the list has it.
    void SelectFeed(std::size_t row);

    void ShowFaultsOnly(bool only);

    /// Writes the shown results to ResultsName in the data folder and opens it in Notepad.
    void SaveResults();

  private:
    struct Try {
        std::size_t Feed;
        std::string Host; ///< in lower case; empty for files
        TimePoint Began{};
        std::unique_ptr<FeedTry> Running{};
    };

    void Begin();
    void StartTries();
    bool IsTrying(const std::string& host) const;
    std::optional<FeedAnswer> AnswerTo(const Try& running);
    void ShowProgress();
    void Add(CheckFeedsForm::Row row);
    void ShowResults();
    void StopTries();
    void End(const std::string& how);
    std::string Summary() const;
    AirportEntry EntryOf(std::string_view icao);

    CheckFeedsForm& form_;
    ListView& list_;
    const Marks& marks_;
    AirportPositions& airports_;
    const Folders& folders_;
    const std::string& user_agent_;
    FeedProbe& probe_;
    Shell& shell_;
    AnsiCodePage& page_;
    Clock& clock_;
    ErrorTrap& trap_;
    std::vector<CatalogueReview::Feed> feeds_;
    std::vector<Try> waiting_;
    std::vector<Try> tries_; // at most one per host
    std::vector<CheckFeedsForm::Row> results_;
};

} // namespace quillon
