#include "app/OnTheAir.h"

#include "playback/CurrentFeed.h"
#include "radio/Channel.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace quillon {

namespace {

constexpr const char* NoSimulator = "No simulator is answering.";
constexpr const char* NoPosition = "The simulator has not reported the aircraft's position yet.";
constexpr double MetresInNauticalMile = 1852;

FeedRecord RecordOf(const OnTheAirForm::Feed& feed) {
    return {feed.Icao, feed.City, feed.Frequency, feed.Url};
}

OnTheAirForm::Feed FeedOf(const FeedRecord& record) {
    return {std::string(record.ICAO), std::string(record.City), std::string(record.Freq),
            std::string(record.URL)};
}

OnTheAirForm::Place PlaceOf(const Sight& sight) {
    return {sight.metres / MetresInNauticalMile, sight.bearing};
}

} // namespace

void OnTheAir::Open() {
    form_.Visible = true;
    ++form_.ActivationRequest;
    Poll();
}

void OnTheAir::Poll() {
    if (!form_.Visible) return;
    form_.ListCaption = state_.cycle.optManual() ? "&Feeds (Enter or a double click plays one):"
                                                 : "&Feeds (Enter or a double click tunes the radio):";
    const RadioState& radio = state_.radio;
    const bool followed = !state_.cycle.optManual() && CycleRuns(state_.cycle);
    if (radio.Connecting || !asked_.expired() || state_.shown.Waiting || (followed && radio.NoConnection))
        ShowNothing(NoSimulator);
    else if (followed)
        ShowFrom(radio.AircraftLatitudeText, radio.AircraftLongitudeText);
    else if (!gate_.Waiting())
        Ask();
}

void OnTheAir::Ask() {
    const auto answer = std::make_shared<Answer>(); // lives until it has been shown
    asked_ = answer;
    gate_.AskMeanwhile(
        [this, answer] { // beside the window's thread
            std::uint32_t result = 0;
            answer->open = link_.FsuipcReopen(result);
            if (answer->open) answer->reading = readout_.Read(0, result);
        },
        [this, answer] {
            if (form_.Visible) ShowAnswer(*answer);
        });
}

void OnTheAir::ShowAnswer(const Answer& answer) {
    const PositionReading position = answer.reading.Position();
    if (!answer.open || !position.latitude) return ShowNothing(NoSimulator);
    ShowFrom(DegreesText(*position.latitude), DegreesText(*position.longitude));
}

void OnTheAir::ShowFrom(const std::string& latitude, const std::string& longitude) {
    const auto aircraft = AircraftPoint(latitude, longitude);
    if (!aircraft) return ShowNothing(NoPosition);
    const std::int16_t range = state_.range.ReceptionRange;
    std::vector<OnTheAirForm::Row> rows;
    for (const FeedAround& feed : around_.Find(*aircraft, range)) rows.push_back(RowOf(feed));
    form_.StateCaption = Heading(rows.size());
    const std::int32_t farthest = rows.empty() ? 0 : std::max(1, rows.back().NauticalMiles);
    Show(std::move(rows), TrackTo(*aircraft), range != 0 ? range : farthest);
}

void OnTheAir::ShowNothing(const std::string& why) {
    form_.StateCaption = why;
    Show({}, {}, 0);
}

void OnTheAir::Show(std::vector<OnTheAirForm::Row> rows, std::vector<OnTheAirForm::Place> track,
                    std::int32_t reach) {
    if (rows == form_.Rows && track == form_.Track && reach == form_.Reach) return;
    form_.Reach = reach;
    form_.Rows = std::move(rows);
    form_.Track = std::move(track);
    ++form_.Revision;
    SelectPicked();
}

std::string OnTheAir::Heading(std::size_t feeds) const {
    const std::int16_t range = state_.range.ReceptionRange;
    const std::string within = " within " + std::to_string(range) + " NM";
    if (feeds == 0)
        return range == 0 ? "None of the feeds' airports are in Airport.dat." : "No feeds" + within + ".";
    const std::string count = std::to_string(feeds) + (feeds == 1 ? " feed" : " feeds");
    return range == 0 ? "The nearest " + count + "." : count + within + ", nearest first.";
}

OnTheAirForm::Row OnTheAir::RowOf(const FeedAround& feed) const {
    const FeedRecord& record = list_.Items()[feed.Row];
    return {FeedOf(record), PlaceOf(feed.Where), feed.Where.NauticalMiles(), MarkOf(record)};
}

OnTheAirForm::Mark OnTheAir::MarkOf(const FeedRecord& record) const {
    const Activity now = state_.shown.Status.What;
    const bool sounds = now == Activity::Playing || now == Activity::RecordingPlays || now == Activity::Gap;
    if (sounds && IsCurrent(state_.feed, record)) return OnTheAirForm::Mark::Playing;
    const bool tuned =
        !state_.cycle.optManual() && FrequencyKey(record.Freq) == FrequencyKey(state_.radio.MasterFrequency);
    return tuned ? OnTheAirForm::Mark::Tuned : OnTheAirForm::Mark::None;
}

std::vector<OnTheAirForm::Place> OnTheAir::TrackTo(const GeoPoint& aircraft) {
    const auto now = clock_.Uptime();
    const bool moved = track_.empty() || track_.back().where.normal != aircraft.normal;
    if (moved) track_.push_back({now, aircraft});
    track_.back().when = now;
    while (now - track_.front().when > TrackLength) track_.pop_front();
    std::vector<OnTheAirForm::Place> places;
    for (const TrackPoint& point : track_)
        if (const auto sight = Look(aircraft, point.where)) places.push_back(PlaceOf(*sight));
    return places;
}

void OnTheAir::Select(const std::optional<OnTheAirForm::Feed>& feed) {
    selected_ = feed;
    SelectPicked();
}

void OnTheAir::SelectPicked() {
    const auto found = std::find_if(form_.Rows.begin(), form_.Rows.end(),
                                    [this](const auto& row) { return row.What == selected_; });
    form_.Selected = found == form_.Rows.end()
                         ? std::nullopt
                         : std::optional(static_cast<std::size_t>(found - form_.Rows.begin()));
}

void OnTheAir::Pick(const OnTheAirForm::Feed& feed) {
    const FeedRecord wanted = RecordOf(feed);
    const auto& items = list_.Items();
    const auto found = std::find_if(items.begin(), items.end(), [&](const FeedRecord& record) {
        return record.ICAO == wanted.ICAO && record.City == wanted.City && record.Freq == wanted.Freq &&
               record.URL == wanted.URL;
    });
    if (found == items.end()) return;
    list_.Select(static_cast<std::size_t>(found - items.begin()));
    list_.EnsureSelectedVisible();
    if (state_.cycle.optManual())
        commands_.lvwDB_ItemClick();
    else
        commands_.TuneFeed();
}

} // namespace quillon
