#include "app/FeedCheck.h"

#include "catalogue/FeedFile.h"
#include "player/Address.h"
#include "ports/TextFile.h"
#include "runtime/Files.h"
#include "runtime/Text.h"
#include "settings/Folders.h"
#include "state/FeedCondition.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace quillon {

namespace {

constexpr const char* ErrorsTitle = "Check Feeds Error";

std::string NameOf(const CatalogueReview::Feed& feed) {
    return feed.ICAO + " " + feed.City;
}

/// Who is asked for the feed, in lower case; empty for this computer.
std::string HostOf(const std::string& url) {
    const auto address = ParseAddress(url);
    return address ? LCase(address->host) : ServerOfPath(url);
}

bool IsFault(const CheckFeedsForm::Row& row) {
    return row.Kind == Finding::FaultyLine || row.Kind == Finding::Fails;
}

std::string TextOf(const CheckFeedsForm::Row& row) {
    return "Line " + std::to_string(row.Line) + ": " + row.Result + " (" + row.Feed +
           (row.Address.empty() ? "" : ", " + row.Address) + ")\r\n";
}

} // namespace

void FeedCheck::CheckFeeds() {
    ++form_.ActivationRequest;
    if (!form_.Running) trap_.RunCommand(ErrorsTitle, Icon::Exclamation, [this] { Begin(); });
}

void FeedCheck::Begin() {
    const std::string path = folders_.DataPath + CatalogueName;
    trap_.StartupStep() = "Opening " + path;
    CatalogueReview review =
        ReviewCatalogue(ReadText(path, page_),
                        {marks_.SharedFrequencies.value_or(false), marks_.SkipFaultyLines.value_or(false),
                         [this](auto icao) { return EntryOf(icao); }});
    trap_.StartupStep().clear();
    results_.clear();
    for (CatalogueReview::FaultyLine& fault : review.Faults)
        results_.push_back(
            {Finding::FaultyLine, fault.Number, std::move(fault.Text), "", std::move(fault.Reason)});
    ShowResults();
    feeds_ = std::move(review.Feeds);
    for (std::size_t feed = 0; feed < feeds_.size(); ++feed)
        waiting_.push_back({feed, HostOf(feeds_[feed].URL)});
    form_.Done = 0;
    form_.Total = feeds_.size();
    form_.Visible = form_.Running = true;
    StartTries();
}

AirportEntry FeedCheck::EntryOf(std::string_view icao) {
    if (airports_.Of(icao) != nullptr) return AirportEntry::Complete;
    return airports_.Lists(icao) ? AirportEntry::WithoutPosition : AirportEntry::Missing;
}

void FeedCheck::StartTries() {
    const FileServers servers = FileServersOf(list_);
    for (auto next = waiting_.begin(); next != waiting_.end() && tries_.size() < MostTries;) {
        if (IsTrying(next->Host)) {
            ++next;
            continue;
        }
        next->Began = clock_.Now();
        next->Running =
            probe_.Start(FolderOfRecordings(folders_, feeds_[next->Feed].URL), user_agent_, servers);
        tries_.push_back(std::move(*next));
        next = waiting_.erase(next);
    }
    if (tries_.empty()) return End("Done.");
    ShowProgress();
}

bool FeedCheck::IsTrying(const std::string& host) const {
    return std::any_of(tries_.begin(), tries_.end(), [&](const Try& running) { return running.Host == host; });
}

void FeedCheck::ShowProgress() {
    std::string names;
    for (const Try& running : tries_) names += (names.empty() ? "" : ", ") + NameOf(feeds_[running.Feed]);
    form_.LabelCaption =
        "Tried " + std::to_string(form_.Done) + " of " + std::to_string(form_.Total) + ". Trying: " + names;
}

void FeedCheck::Poll() {
    if (!form_.Running) return;
    const auto ended = std::erase_if(tries_, [this](const Try& running) {
        const auto answer = AnswerTo(running);
        if (!answer) return false;
        const CatalogueReview::Feed& feed = feeds_[running.Feed];
        Add({answer->Kind, feed.Line, NameOf(feed), feed.URL, answer->Words});
        return true;
    });
    form_.Done += ended;
    if (ended > 0) StartTries();
}

std::optional<FeedAnswer> FeedCheck::AnswerTo(const Try& running) {
    auto answer = running.Running->Answer();
    if (!answer && clock_.Now() - running.Began > LongestTry)
        answer = {Finding::Fails, WordsOf(SilenceReason{SilenceCause::NoAnswer, ""})};
    return answer;
}

void FeedCheck::Add(CheckFeedsForm::Row row) {
    if (!form_.FaultsOnly || IsFault(row)) form_.Rows.push_back(row);
    results_.push_back(std::move(row));
    ++form_.Revision;
}

void FeedCheck::ShowFaultsOnly(bool only) {
    form_.FaultsOnly = only;
    ShowResults();
}

void FeedCheck::ShowResults() {
    form_.Rows.clear();
    for (const CheckFeedsForm::Row& row : results_)
        if (!form_.FaultsOnly || IsFault(row)) form_.Rows.push_back(row);
    ++form_.Revision;
}

/// Moves the worst results to the top.
void FeedCheck::End(const std::string& how) {
    form_.Running = false;
    std::stable_sort(results_.begin(), results_.end(), [](const auto& a, const auto& b) {
        return std::tie(a.Kind, a.Line) < std::tie(b.Kind, b.Line);
    });
    ShowResults();
    form_.LabelCaption = how + Summary();
}

std::string FeedCheck::Summary() const {
    constexpr std::pair<Finding, const char*> Titles[] = {{Finding::Answers, " Good: "},
                                                          {Finding::Redirects, " Redirected: "},
                                                          {Finding::Fails, " Failed: "},
                                                          {Finding::FaultyLine, " Faults in the file: "}};
    std::string summary;
    for (const auto& [kind, title] : Titles) {
        const auto count = std::count_if(results_.begin(), results_.end(),
                                         [kind = kind](const auto& row) { return row.Kind == kind; });
        summary += title + std::to_string(count) + ".";
    }
    return summary;
}

void FeedCheck::Cancel() {
    if (!form_.Running) return Close();
    StopTries();
    End("Cancelled after " + std::to_string(form_.Done) + " of " + std::to_string(form_.Total) + ".");
}

void FeedCheck::Close() {
    StopTries();
    form_.Visible = form_.Running = false;
}

void FeedCheck::StopTries() {
    tries_.clear();
    waiting_.clear();
}

void FeedCheck::SaveResults() {
    trap_.RunCommand(ErrorsTitle, Icon::Exclamation, [this] {
        const std::string path = folders_.DataPath + ResultsName;
        std::string text = "\xEF\xBB\xBF" + form_.LabelCaption + "\r\n\r\n"; // older Notepads need the mark
        for (const CheckFeedsForm::Row& row : form_.Rows) text += TextOf(row);
        trap_.StartupStep() = "Saving " + path;
        ReplaceFile(path, text);
        shell_.Start("notepad.exe", path);
        trap_.StartupStep().clear();
    });
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
