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

/// Loads the catalogue into the list view, which is the program's catalogue from then on.
class FeedLoader {
  public:
    /// `remember` keeps the marks.
    FeedLoader(ProgramState& state, Prompts& prompts, AnsiCodePage& page, LiveFeed& live, ErrorTrap& trap,
               std::function<void()> remember)
        : state_(state),
          prompts_(prompts),
          page_(page),
          live_(live),
          trap_(trap),
          remember_(std::move(remember)) {}

    /// Rebuilds the list: feeds without a frequency get the lowest free channels, in the file's order. A
    /// failure is reported, and the list keeps the feeds before it. In any case no feed is current afterwards.
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
    void ForEachFeed(const char* step, const FeedHandler& handler);
    void Open();

    ProgramState& state_;
    Prompts& prompts_;
    AnsiCodePage& page_;
    LiveFeed& live_;
    ErrorTrap& trap_;
    std::function<void()> remember_;
    TextVersion loaded_;
};

} // namespace quillon
