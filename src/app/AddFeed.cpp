#include "app/AddFeed.h"

#include "app/AddFeedKeys.h"
#include "catalogue/FeedFile.h"
#include "playback/CurrentFeed.h"
#include "ports/TextFile.h"
#include "runtime/Files.h"
#include "runtime/Text.h"
#include "settings/Folders.h"
#include "settings/TraceLog.h"
#include "state/Services.h"

namespace quillon {

namespace {

constexpr const char* ErrorsTitle = "Add Feed Error";
constexpr const char* HttpPrefix = "http://";
constexpr const char* AddressPrompt = "Enter URL: (http://.....)";

struct KindPresets {
    SourceKind Kind;
    const char* PromptCaption;
    const char* Url; ///< null: unchanged
    const char* City;
    bool Browse;
};
constexpr KindPresets Presets[] = {
    {SourceKind::LiveATC, AddressPrompt, HttpPrefix, "", false},
    {SourceKind::InternetRadio, AddressPrompt, nullptr, RadioCity, false},
    {SourceKind::PlayLists, "Enter path to .wpl (PlayList) files:", "", "Playlist ", true},
    {SourceKind::WaveFiles, "Enter path to .wav files:", "", WaveCity, true},
};

std::size_t CountFeeds(std::string_view catalogue) {
    std::size_t feeds = 0;
    while (const auto line = TakeLine(catalogue)) feeds += IsFeedLine(*line) && IsWholeLine(*line) ? 1U : 0U;
    return feeds;
}

std::string WordsOfAdded(const frmAddATC& form) {
    const std::string& frequency = form[AddBox::txtFreq];
    return "Added: " + form[AddBox::txtICAO] + " on " + (frequency.empty() ? "a free channel" : frequency) +
           ". The catalogue now has " + std::to_string(form.Feeds) + (form.Feeds == 1 ? " feed." : " feeds.");
}

} // namespace

std::string AddFeed::CataloguePath() const {
    return state_.folders.DataPath + CatalogueName;
}

void AddFeed::mnuAddATC_Click() {
    cycle_ran_ = StopCycle(state_.cycle);
    state_.Busy = true;
    state_.add_feed = {};
    state_.add_feed.PromptCaption = AddressPrompt;
    state_.add_feed.SharedFrequencies = state_.marks.SharedFrequencies.value_or(false);
    state_.add_feed[AddBox::txtURL] = services::LiveAtcFeedPrefix;
    state_.add_feed.RequestFocus({AddBox::txtICAO, 0, 0});
    trap_.RunCommand(ErrorsTitle, Icon::Exclamation, [this] { CollectFrequencies(); });
    state_.add_feed.Visible = true;
}

/// Leaves the last feed's texts in the current feed's. Nothing else reads those while the dialog is open, and
/// the reload that follows clears them.
void AddFeed::CollectFrequencies() {
    state_.StartupStep = "Opening " + CataloguePath();
    const std::string text = ReadText(CataloguePath(), page_);
    state_.add_feed.Feeds = CountFeeds(text);
    const bool skips = state_.marks.SkipFaultyLines.value_or(false);
    std::string_view rest = text;
    while (const auto line = TakeLine(rest)) {
        state_.StartupStep.assign("Data: ").append(*line);
        if (!IsFeedLine(*line) || (skips && !IsWholeLine(*line))) continue;
        const FeedLine feed = SplitFeedLine(*line);
        state_.feed.FeedIcao = feed.ICAO;
        state_.feed.FeedCity = feed.City;
        state_.feed.FeedUrl = feed.URL;
        state_.feed.FeedFrequency = feed.Freq;
        if (feed.StatesFrequency())
            state_.add_feed.lstAdd.push_back({std::string(feed.Freq), std::string(feed.ICAO)});
    }
    state_.StartupStep.clear();
}

void AddFeed::SetText(AddBox box, const std::string& text) {
    if (state_.add_feed[box] == text) return;
    state_.add_feed[box] = text;
    if (box == AddBox::txtICAO) NoteAirport();
    if (box == AddBox::txtURL) EndTest();
}

void AddFeed::NoteAirport() {
    frmAddATC& form = state_.add_feed;
    const std::string& icao = form[AddBox::txtICAO];
    const bool unknown = IsIcao(icao) && positions_.Of(icao) == nullptr;
    form.AirportNote = unknown ? "Not in Airport.dat: distance unknown" : "";
}

void AddFeed::cmdCancel_Click() {
    EndTest();
    state_.add_feed.Visible = false;
    state_.Busy = false;
    reload_.Run(cycle_ran_);
}

void AddFeed::ChooseKind(SourceKind kind) {
    frmAddATC& form = state_.add_feed;
    form.Kind = kind;
    for (const KindPresets& presets : Presets) {
        if (presets.Kind != kind) continue;
        form.PromptCaption = presets.PromptCaption;
        if (presets.Url != nullptr) SetText(AddBox::txtURL, presets.Url);
        SetText(AddBox::txtCity, presets.City);
        form.cmdBrowseVisible = presets.Browse;
    }
}

int AddFeed::TypeKey(AddBox box, int key) {
    int& previous = previous_keys_.at(static_cast<std::size_t>(box));
    const int character = KeyPress(box, key, state_.add_feed[box], previous);
    previous = key;
    return character;
}

void AddFeed::txtURL_GotFocus() {
    const auto end = static_cast<std::ptrdiff_t>(Len(state_.add_feed[AddBox::txtURL]));
    state_.add_feed.RequestFocus({AddBox::txtURL, end, 0});
}

void AddFeed::cmdBrowse_Click() {
    const bool waves = state_.add_feed.Kind == SourceKind::WaveFiles;
    const std::string path = waves ? prompts_.BrowseFile("Wave Files (*.wav)", "*.wav", state_.folders.WavePath)
                                   : prompts_.BrowseFile("Playlist Files (*.wpl)", "*.wpl", "");
    if (path.empty()) return;
    SetText(AddBox::txtURL, waves ? FolderOf(path) : path);
}

/// In portable mode, a folder below the data folder is stored as a relative path.
std::string AddFeed::FolderOf(const std::string& path) const {
    const std::string folder = path.substr(0, path.rfind('\\') + 1);
    const std::string& data = state_.folders.DataPath;
    const bool moves_along = state_.folders.Portable && LCase(folder).starts_with(LCase(data));
    return moves_along ? folder.substr(data.size()) : folder;
}

void AddFeed::TestAddress() {
    frmAddATC& form = state_.add_feed;
    const std::string& address = form[AddBox::txtURL];
    FileServers servers = FileServersOf(state_.form.lvwDB);
    if (std::string server = ServerOfPath(address); !server.empty()) servers.insert(std::move(server));
    form.TestCaption = "Trying the address ...";
    try_ = probe_.Start(FolderOfRecordings(state_.folders, address), state_.UserAgent, servers);
}

void AddFeed::Poll() {
    const auto answer = try_ ? try_->Answer() : std::nullopt;
    if (!answer) return;
    state_.add_feed.TestCaption = answer->Words;
    try_.reset();
}

void AddFeed::EndTest() {
    try_.reset();
    state_.add_feed.TestCaption.clear();
}

void AddFeed::VerifyData() {
    const auto fault = FindFault(state_.add_feed);
    state_.add_feed.BadData = fault.has_value();
    if (!fault) return;
    state_.add_feed.RequestFocus(fault->Where);
    prompts_.Message(fault->Title, fault->Text, Icon::Exclamation);
}

void AddFeed::cmdAdd_Click() {
    frmAddATC& form = state_.add_feed;
    SetText(AddBox::txtFreq, CompletedFrequency(form[AddBox::txtFreq]));
    VerifyData();
    if (form.BadData) return;
    const std::string line = form[AddBox::txtICAO] + "|" + form[AddBox::txtCity] + "|" + form[AddBox::txtURL] +
                             "|" + form[AddBox::txtFreq];
    if (!Append(line)) return;
    ++form.Feeds;
    form.AddedCaption = WordsOfAdded(form);
    PrepareNext();
}

/// Returns whether the line was written. If not, the message quotes it: it must not be lost.
bool AddFeed::Append(const std::string& line) {
    state_.StartupStep = "Opening " + CataloguePath();
    try {
        AppendLines(CataloguePath(), {line}, page_);
        state_.add_feed.lstAdd.push_back({state_.add_feed[AddBox::txtFreq], state_.add_feed[AddBox::txtICAO]});
        state_.StartupStep.clear();
        return true;
    } catch (const RuntimeError& error) {
        const std::string what = "Error " + std::to_string(error.Number) + " " + error.Description;
        state_.MessageText =
            state_.StartupStep + "\r" + what + "\r\rThe file is unchanged. This line was not added:\r" + line;
        try {
            TraceLog(state_.folders).WriteLog(state_.StartupStep + " " + what);
        } catch (const RuntimeError&) {
            // Whatever prevents writing the catalogue may prevent writing the log too.
        }
        prompts_.Message(ErrorsTitle, state_.MessageText, Icon::Exclamation);
    }
    state_.StartupStep.clear();
    return false;
}

void AddFeed::PrepareNext() {
    frmAddATC& form = state_.add_feed;
    SetText(AddBox::txtICAO, "");
    SetText(AddBox::txtFreq, "");
    switch (form.Kind) {
    case SourceKind::LiveATC:
        SetText(AddBox::txtURL, services::LiveAtcFeedPrefix);
        SetText(AddBox::txtCity, "");
        break;
    case SourceKind::InternetRadio:
        SetText(AddBox::txtURL, HttpPrefix);
        SetText(AddBox::txtCity, RadioCity);
        break;
    case SourceKind::PlayLists:
        SetText(AddBox::txtURL, "");
        break;
    case SourceKind::WaveFiles:
        SetText(AddBox::txtURL, "");
        SetText(AddBox::txtCity, WaveCity);
        break;
    }
    form.RequestFocus({AddBox::txtICAO, 0, 0});
}

} // namespace quillon
