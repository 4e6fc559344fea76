#pragma once

#include "catalogue/FeedFile.h"
#include "ports/AnsiCodePage.h"
#include "ports/Prompts.h"
#include "state/ProgramState.h"

#include <functional>
#include <memory>
#include <string>

namespace quillon {

/// Loads the catalogue into the list view, which is the program's catalogue from then on.
class FeedLoader {
  public:
    FeedLoader(ProgramState& state, Prompts& prompts, AnsiCodePage& page, ErrorTrap& trap)
        : state_(state), prompts_(prompts), page_(page), trap_(trap) {}

    /// Rebuilds the list: feeds without a frequency get the lowest free channels, in the file's order. A
    /// failure is reported, and the list keeps the feeds before it. However it ends, no feed is current
    /// afterwards.
    void LoadList();

    /// Sorts the list by frequency in the next load and selects "CYEE" in it. Nothing sets it, so that the list
    /// keeps the file's order until the user sorts it.
    bool FirstListLoad = false;

  private:
    using FeedHandler = std::function<void(const FeedLine&)>;

    void RebuildList();

    /// Rebuilds `lstUFreq` and takes its frequencies out of the pool. Reports duplicates, one box for each
    /// neighbour that is equal to the one before it, and failures.
    void LoadUserFreq();

    void AddFeed(const FeedLine& feed);
    void ShowFirst();
    void CollectUserFreq();
    void ReportDuplicates();
    void ForEachFeed(const char* step, const FeedHandler& handler);
    void Open();

    ProgramState& state_;
    Prompts& prompts_;
    AnsiCodePage& page_;
    ErrorTrap& trap_;
    std::shared_ptr<const std::string> text_; // of the catalogue, while a load goes over it twice
};

} // namespace quillon
