#pragma once

#include "catalogue/CatalogueReview.h"
#include "ports/AnsiCodePage.h"
#include "ports/Clock.h"
#include "ports/FeedProbe.h"
#include "runtime/ErrorTrap.h"
#include "state/Folders.h"
#include "state/Forms.h"

namespace quillon {

/// The check of the catalogue: reviews its lines and tries the address of each feed in turn, while everything
/// else goes on. It changes nothing.
class FeedCheck {
  public:
    /// An address that has neither answered nor failed after so long counts as failed.
    static constexpr std::chrono::seconds LongestTry{90};

    FeedCheck(frmCheckFeeds& form, ListView& list, const Folders& folders, const std::string& user_agent,
              FeedProbe& probe, AnsiCodePage& page, Clock& clock, ErrorTrap& trap)
        : form_(form),
          list_(list),
          folders_(folders),
          user_agent_(user_agent),
          probe_(probe),
          page_(page),
          clock_(clock),
          trap_(trap) {}

    /// Opens the dialog and begins; one that runs goes on.
    void mnuCheckFeeds_Click();

    /// To be called often while the check runs.
    void Timer_Timer();

    /// Ends a check that runs, with what it has found so far; closes the dialog when none does.
    void cmdCancel_Click();

    /// The dialog was closed by its title bar.
    void Form_Close();

    /// Selects the feed of a result in the list, as far as the list has it.
    void lstResults_DblClick(std::size_t row);

  private:
    void Begin();
    void TryNext();
    void Record(const FeedAnswer& answer);
    void End(const std::string& how);
    std::string Summary() const;

    frmCheckFeeds& form_;
    ListView& list_;
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
