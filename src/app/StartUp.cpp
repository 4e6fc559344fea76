#include "app/StartUp.h"

#include "app/StartVolume.h"
#include "catalogue/DefaultFeeds.h"
#include "catalogue/FeedFile.h"
#include "playback/CurrentFeed.h"
#include "runtime/Number.h"
#include "settings/Folders.h"
#include "settings/TraceLog.h"

namespace quillon {

void StartUp::Form_Load() {
    const bool can_be_written_to = FindHome(state_.folders, ports_.shell);
    state_.splash.Visible = !RememberedState::StartsMinimised(DataFolder(state_.folders));
    ports_.display.Repaint();
    if (!can_be_written_to) parts_.data_move.TellRefused();
    parts_.data_move.OfferCopy(); // before anything is written
    SetUpForm();
    const bool missing = parts_.starter.FilesAreMissing();
    if (missing) CreateMissingFiles();
    Load(4);
    state_.splash.Visible = false;
    state_.form.Visible = !state_.Ended;
    ports_.display.Repaint(); // the next step may take long
    const auto wanted = [&] { return parts_.starter.NothingToHear() && parts_.starter.Offer(); };
    if (!missing && !state_.Ended && wanted() && !state_.Ended) TakeUpStarterData();
}

void StartUp::CreateMissingFiles() {
    if (parts_.starter.Offer()) CreateStarterData();
}

bool StartUp::CreateStarterData() {
    if (!trap_.Run("Starter Data Error", Icon::Exclamation, [this] { parts_.starter.Create(); })) return false;
    parts_.regional.Restore(); // so that its note is written to the new data folder
    ReplaceSeparators();
    return true;
}

/// Takes at least `least_seconds`, unless a step fails.
void StartUp::Load(std::int16_t least_seconds) {
    const bool loaded = trap_.Run(LoadErrorsTitle, Icon::Exclamation, [this, least_seconds] {
        PrepareFiles();
        LoadData();
        ApplyStartVolume();
        WaiT(ports_.clock, least_seconds);
        state_.MessageText.clear();
        state_.StartupStep.clear();
    });
    if (loaded) return;
    parts_.regional.Restore();
    parts_.settings.LeaveFileAlone();
}

void StartUp::TakeUpStarterData() {
    if (!CreateStarterData()) return;
    const bool cycle_ran = StopCycle(state_.cycle); // it has been running since the window was made
    Load(0);
    parts_.reload.TakeUpList(cycle_ran);
}

void StartUp::SetUpForm() {
    frmATC& form = state_.form;
    form.lvwDB.ColumnHeaders = {{"ICAO", 700}, {"City", 3500}, {"Freq", 800}, {"URL", 2400}};
    form.lvwDB.Clear();
    form.lvwDB.ToolTipText = " Click on a column header to sort by column. Click again to change sort order "
                             "(ascending or decending) ";
    ReplaceSeparators();
    state_.radio.PreviousFrequency = ForcedFrequency;
    state_.radio.MasterFrequency = UnreadFrequency;
    for (std::size_t i = 0; i < PanelWidths.size(); ++i) form.StatusBar1[i].WidthTwips = PanelWidths[i];
    texts_.ShowMode();
    FillGapCombos();
}

void StartUp::ReplaceSeparators() {
    if (!parts_.regional.ReadAndReplace(DataFolder(state_.folders) + "Quillon.separators"))
        parts_.notices.Show({NoticeKind::SeparatorsKept, ""});
}

void StartUp::FillGapCombos() {
    const auto fill = [](ComboBox& combo, std::int32_t first, std::int32_t last) {
        for (std::int32_t seconds = first; seconds <= last; ++seconds) combo.Items.push_back(Str(seconds));
    };
    fill(state_.form.cboMin, 5, 240);
    fill(state_.form.cboMax, 10, 300);
}

void StartUp::PrepareFiles() {
    const bool own_folder = FindFolders(state_.folders, state_.StartupStep);
    if (own_folder) AddDefaultFeeds(state_.folders, state_.StartupStep, ports_.code_page);
    EnableMenus();
    parts_.settings.ReadIni();
    RestorePlayer();
    TraceLog log(state_.folders);
    state_.StartupStep = "Opening " + log.Path();
    log.Clear();
    parts_.events.Add("Quillon starts");
    state_.StartupStep.clear();
}

void StartUp::EnableMenus() {
    state_.form.FoldersKnown = true;
    state_.form.HasBackup = FExists(state_.folders.DataPath + BackupName);
}

void StartUp::RestorePlayer() {
    parts_.remembered.Read();
    if (parts_.starter.CreatedCatalogue()) {
        state_.marks.SharedFrequencies = state_.marks.SkipFaultyLines = true;
        parts_.remembered.Write();
    }
    ports_.player.SetVolume(state_.form.Volume);
    ports_.live.SetUserAgent(state_.UserAgent);
    ports_.live.Force(state_.sound.Player);
    ports_.devices.Use(state_.sound.Device);
}

void StartUp::LoadData() {
    parts_.airports.LoadAirports(state_.folders.DataPath);
    parts_.positions.Forget();
    parts_.loader.LoadList();
}

void StartUp::ApplyStartVolume() {
    const auto volume = StartVolume(command_line_);
    if (!volume) return;
    state_.form.Volume = *volume;
    ports_.player.SetVolume(*volume);
}

} // namespace quillon
