#pragma once

#include "catalogue/FeedFile.h"
#include "ports/LiveFeed.h"
#include "ports/Prompts.h"
#include "ports/TextFile.h"
#include "state/ProgramState.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// What of the catalogue cannot be heard, though its other lines were loaded.
struct LoadReport {
    std::size_t LinesLeftOut = 0;   ///< because they cannot be read
    std::size_t WithoutChannel = 0; ///< feeds for which no free channel was left
};

/// Loads the catalogue into the list view, which is the program's catalogue from then on.
class FeedLoader {
  public:
    /// `remember` keeps the marks; `tell` is told after each load.
    FeedLoader(ProgramState& state, Prompts& prompts, AnsiCodePage& page, LiveFeed& live, ErrorTrap& trap,
               std::function<void()> remember, std::function<void(const LoadReport&)> tell)
        : state_(state),
          prompts_(prompts),
          page_(page),
          live_(live),
          trap_(trap),
          remember_(std::move(remember)),
          tell_(std::move(tell)) {}

    /// Rebuilds the list: feeds without a frequency get the lowest free channels, in the file's order. A
    /// failure is reported, and the list keeps the feeds before it. If it is a line that cannot be read, the
    /// user is asked, once, whether to leave such lines out. In any case no feed is current afterwards.
    void LoadList();

    /// The same with that version of the file instead of the present one.
    void LoadList(const TextVersion& version);

    /// The version that was last loaded; without a text if it could not be read.
    const TextVersion& Loaded() const { return loaded_; }

    /// The file has been written again with the loaded version's text.
    void Confirm(const TextVersion& version) { loaded_.Stamp = version.Stamp; }

    /// Makes the next load sort the list by frequency and select "CYEE". Nothing sets it, so the list keeps the
    /// file's order until the user sorts it.
    bool FirstListLoad = false;

  private:
    using FeedHandler = std::function<void(const FeedLine&)>;

    void Load();
    void RebuildList();

    /// A frequency that two feeds state, and whether they are of one airport.
    struct Duplicate {
        std::string_view Frequency;
        bool SameAirport;
    };

    /// Rebuilds `lstUFreq` and takes its frequencies out of the pool. Reports failures and duplicates.
    void LoadUserFreq();

    void AddFeed(const FeedLine& feed);
    void ShowFirst();
    void CollectUserFreq();
    std::vector<Duplicate> FindDuplicates();
    void ReportDuplicates();
    void AskToShare(const std::vector<Duplicate>& duplicates);
    bool AskToLeaveOut();
    void ForEachFeed(const char* step, const FeedHandler& handler);
    void Open();

    ProgramState& state_;
    Prompts& prompts_;
    AnsiCodePage& page_;
    LiveFeed& live_;
    ErrorTrap& trap_;
    std::function<void()> remember_;
    std::function<void(const LoadReport&)> tell_;
    LoadReport report_;
    bool met_faulty_line_ = false;
    TextVersion loaded_;
};

} // namespace quillon
