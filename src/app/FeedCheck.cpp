#include "app/FeedCheck.h"

#include "catalogue/FeedFile.h"
#include "ports/TextFile.h"
#include "state/FeedCondition.h"

#include <algorithm>

namespace quillon {

namespace {

std::string NameOf(const CatalogueReview::Feed& feed) {
    return feed.ICAO + " " + feed.City;
}

} // namespace

void FeedCheck::CheckFeeds() {
    ++form_.ActivationRequest;
    if (!form_.Running) trap_.RunCommand("Check Feeds Error", Icon::Exclamation, [this] { Begin(); });
}

void FeedCheck::Begin() {
    const std::string path = folders_.DataPath + CatalogueName;
    trap_.StartupStep() = "Opening " + path;
    CatalogueReview review =
        ReviewCatalogue(ReadText(path, page_),
                        {marks_.SharedFrequencies.value_or(false), marks_.SkipFaultyLines.value_or(false),
                         [this](auto icao) { return airports_.Of(icao) != nullptr; }});
    trap_.StartupStep().clear();
    form_.Rows.clear();
    for (CatalogueReview::FaultyLine& fault : review.Faults)
        form_.Rows.push_back(
            {Finding::FaultyLine, fault.Number, std::move(fault.Text), "", std::move(fault.Reason)});
    ++form_.Revision;
    feeds_ = std::move(review.Feeds);
    form_.Done = 0;
    form_.Total = feeds_.size();
    form_.Visible = form_.Running = true;
    TryNext();
}

void FeedCheck::TryNext() {
    if (form_.Done == form_.Total) return End("Done.");
    const CatalogueReview::Feed& feed = feeds_[form_.Done];
    form_.LabelCaption =
        "Trying " + std::to_string(form_.Done + 1) + " of " + std::to_string(form_.Total) + ": " + NameOf(feed);
    try_began_ = clock_.Now();
    probe_.Start(feed.URL, user_agent_, FileServersOf(list_));
}

void FeedCheck::Poll() {
    if (!form_.Running) return;
    if (const auto answer = probe_.Result()) {
        Record(*answer);
    } else if (clock_.Now() - try_began_ > LongestTry) {
        probe_.Cancel();
        Record({Finding::Fails, WordsOf(SilenceReason{SilenceCause::NoAnswer, ""})});
    }
}

void FeedCheck::Record(const FeedAnswer& answer) {
    const CatalogueReview::Feed& feed = feeds_[form_.Done++];
    form_.Rows.push_back({answer.Kind, feed.Line, NameOf(feed), feed.URL, answer.Words});
    ++form_.Revision;
    TryNext();
}

/// Moves the worst results to the top.
void FeedCheck::End(const std::string& how) {
    form_.Running = false;
    std::vector<CheckFeedsForm::Row> rows;
    for (const Finding kind : {Finding::FaultyLine, Finding::Fails, Finding::Redirects, Finding::Answers})
        for (CheckFeedsForm::Row& row : form_.Rows)
            if (row.Kind == kind) rows.push_back(std::move(row));
    form_.Rows = std::move(rows);
    ++form_.Revision;
    form_.LabelCaption = how + Summary();
}

std::string FeedCheck::Summary() const {
    constexpr std::pair<Finding, const char*> Titles[] = {{Finding::Answers, " Good: "},
                                                          {Finding::Redirects, " Redirected: "},
                                                          {Finding::Fails, " Failed: "},
                                                          {Finding::FaultyLine, " Faults in the file: "}};
    std::string summary;
    for (const auto& [kind, title] : Titles) {
        const auto count = std::count_if(form_.Rows.begin(), form_.Rows.end(),
                                         [kind = kind](const auto& row) { return row.Kind == kind; });
        summary += title + std::to_string(count) + ".";
    }
    return summary;
}

void FeedCheck::Cancel() {
    if (!form_.Running) return Close();
    probe_.Cancel();
    End("Cancelled after " + std::to_string(form_.Done) + " of " + std::to_string(form_.Total) + ".");
}

void FeedCheck::Close() {
    probe_.Cancel();
    form_.Visible = form_.Running = false;
}

void FeedCheck::SelectFeed(std::size_t row) {
    const std::vector<CheckFeedsForm::Row>& rows = form_.Rows;
    if (row >= rows.size()) return;
    const auto feed = std::find_if(feeds_.begin(), feeds_.end(),
                                   [&](const auto& candidate) { return candidate.Line == rows[row].Line; });
    if (feed == feeds_.end()) return;
    const auto item =
        std::find_if(list_.Items().begin(), list_.Items().end(), [&](const FeedRecord& candidate) {
            return candidate.URL == feed->URL && candidate.City == feed->City && candidate.ICAO == feed->ICAO;
        });
    if (item == list_.Items().end()) return;
    list_.Select(static_cast<std::size_t>(item - list_.Items().begin()));
    list_.EnsureSelectedVisible();
}

} // namespace quillon
