#include "app/FeedCheck.h"

#include "catalogue/FeedFile.h"
#include "ports/TextFile.h"

#include <algorithm>

namespace quillon {

namespace {

std::string NameOf(const CatalogueReview::Feed& feed) {
    return feed.ICAO + " " + feed.City;
}

} // namespace

void FeedCheck::mnuCheckFeeds_Click() {
    ++state_.checkFeeds.Calls;
    if (!state_.checkFeeds.Running)
        trap_.RunCommand("Check Feeds Error", Icon::Exclamation, [this] { Begin(); });
}

void FeedCheck::Begin() {
    const std::string path = state_.folders.DataPath + CatalogueName;
    state_.StartupStep = "Opening " + path;
    CatalogueReview review = ReviewCatalogue(ReadText(path, page_));
    state_.StartupStep.clear();
    frmCheckFeeds& form = state_.checkFeeds;
    form.Rows.clear();
    for (CatalogueReview::FaultyLine& fault : review.Faults)
        form.Rows.push_back(
            {Finding::FaultyLine, fault.Number, std::move(fault.Text), "", std::move(fault.Reason)});
    ++form.Revision;
    feeds_ = std::move(review.Feeds);
    form.Done = 0;
    form.Total = feeds_.size();
    form.Visible = form.Running = true;
    TryNext();
}

void FeedCheck::TryNext() {
    frmCheckFeeds& form = state_.checkFeeds;
    if (form.Done == form.Total) return End("Done.");
    const CatalogueReview::Feed& feed = feeds_[form.Done];
    form.LabelCaption =
        "Trying " + std::to_string(form.Done + 1) + " of " + std::to_string(form.Total) + ": " + NameOf(feed);
    try_began_ = clock_.Now();
    probe_.Start(feed.URL, state_.UserAgent);
}

void FeedCheck::Timer_Timer() {
    if (!state_.checkFeeds.Running) return;
    if (const auto answer = probe_.Result()) {
        Record(*answer);
    } else if (clock_.Now() - try_began_ > LongestTry) {
        probe_.Cancel();
        Record({Finding::Fails, "No answer"});
    }
}

void FeedCheck::Record(const FeedAnswer& answer) {
    frmCheckFeeds& form = state_.checkFeeds;
    const CatalogueReview::Feed& feed = feeds_[form.Done++];
    form.Rows.push_back({answer.Kind, feed.Line, NameOf(feed), feed.URL, answer.Words});
    ++form.Revision;
    TryNext();
}

/// What there is to mend comes to the top.
void FeedCheck::End(const std::string& how) {
    frmCheckFeeds& form = state_.checkFeeds;
    form.Running = false;
    std::vector<frmCheckFeeds::Row> rows;
    for (const Finding kind : {Finding::FaultyLine, Finding::Fails, Finding::Redirects, Finding::Answers})
        for (frmCheckFeeds::Row& row : form.Rows)
            if (row.Kind == kind) rows.push_back(std::move(row));
    form.Rows = std::move(rows);
    ++form.Revision;
    form.LabelCaption = how + Summary();
}

std::string FeedCheck::Summary() const {
    constexpr std::pair<Finding, const char*> Titles[] = {{Finding::Answers, " Good: "},
                                                          {Finding::Redirects, " Redirected: "},
                                                          {Finding::Fails, " Failed: "},
                                                          {Finding::FaultyLine, " Faults in the file: "}};
    std::string summary;
    for (const auto& [kind, title] : Titles) {
        const auto count = std::count_if(state_.checkFeeds.Rows.begin(), state_.checkFeeds.Rows.end(),
                                         [kind = kind](const auto& row) { return row.Kind == kind; });
        summary += title + std::to_string(count) + ".";
    }
    return summary;
}

void FeedCheck::cmdCancel_Click() {
    frmCheckFeeds& form = state_.checkFeeds;
    if (!form.Running) return Form_Close();
    probe_.Cancel();
    End("Cancelled after " + std::to_string(form.Done) + " of " + std::to_string(form.Total) + ".");
}

void FeedCheck::Form_Close() {
    probe_.Cancel();
    state_.checkFeeds.Visible = state_.checkFeeds.Running = false;
}

void FeedCheck::lstResults_DblClick(std::size_t row) {
    const std::vector<frmCheckFeeds::Row>& rows = state_.checkFeeds.Rows;
    if (row >= rows.size()) return;
    const auto feed = std::find_if(feeds_.begin(), feeds_.end(),
                                   [&](const auto& candidate) { return candidate.Line == rows[row].Line; });
    if (feed == feeds_.end()) return;
    ListView& list = state_.form.lvwDB;
    const auto item = std::find_if(list.Items().begin(), list.Items().end(), [&](const FeedRecord& candidate) {
        return candidate.URL == feed->URL && candidate.City == feed->City && candidate.ICAO == feed->ICAO;
    });
    if (item == list.Items().end()) return;
    list.Select(static_cast<std::size_t>(item - list.Items().begin()));
    list.EnsureSelectedVisible();
}

} // namespace quillon
