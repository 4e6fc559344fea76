#include "app/Commands.h"

#include "app/Parts.h"
#include "playback/CurrentFeed.h"

#include <array>
#include <utility>

namespace quillon {

namespace {

bool Always(const ProgramState&) {
    return true;
}

bool Idle(const ProgramState& state) {
    return !state.Busy;
}

bool WithFolders(const ProgramState& state) {
    return !state.Busy && state.form.FoldersKnown;
}

bool WithBackup(const ProgramState& state) {
    return !state.Busy && state.form.HasBackup;
}

bool WhileStreaming(const ProgramState& state) {
    return !state.Busy && IsStream(state.feed);
}

// A radio button also says that it was clicked when it only gets the keyboard.
bool InManualMode(const ProgramState& state) {
    return !state.Busy && state.cycle.optManual();
}

bool InAutomaticMode(const ProgramState& state) {
    return !state.Busy && !state.cycle.optManual();
}

/// Turns a check mark over and keeps it.
void Turn(Parts& parts, bool& mark) {
    mark = !mark;
    parts.remembered.Write();
}

void Turn(Parts& parts, std::optional<bool>& mark) {
    mark = !mark.value_or(false);
    parts.remembered.Write();
}

constexpr int VolumeStep = 5;
constexpr Command Separator{};
constexpr Command EditData{Command::mnuEditData, "&Edit Feeds in Notepad",
                           [](Parts& p) { p.maintenance.mnuEditData_Click(); }};

constexpr Command MuteSound{Command::StripMute, "&Mute", [](Parts& p) { p.strip.TurnMute(); }, Idle,
                            [](const ProgramState& state) { return state.mute.Muted; }};
constexpr Command Compact{Command::CompactView, "&Compact View\tCtrl+M", [](Parts& p) { p.view.TurnCompact(); },
                          Idle, [](const ProgramState& state) { return state.form.Compact; }};
constexpr Command Quit{Command::mnuQuit, "&Quit\tAlt+F4", [](Parts& p) { p.shut_down.Run(); }, Always};

constexpr Command FileMenu[] = {
    {Command::ReloadFeed, "Re&load Feed\tF5", [](Parts& p) { p.strip.ReloadFeed(); }, WhileStreaming},
    Separator,
    {Command::mnuAddATC, "&Add Feed ...\tCtrl+N", [](Parts& p) { p.add_feed.mnuAddATC_Click(); }, WithFolders},
    Separator,
    {Command::mnuBackup, "&Back Up Feeds ...", [](Parts& p) { p.maintenance.mnuBackup_Click(); }, WithFolders},
    {Command::mnuRestore, "&Restore Feeds ...", [](Parts& p) { p.maintenance.mnuRestore_Click(); }, WithBackup},
    EditData,
    {Command::CheckFeeds, "Check &Feeds", [](Parts& p) { p.feed_check.CheckFeeds(); }},
    Separator,
    {Command::mnuPrint, "&Print Master List\tCtrl+P", [](Parts& p) { p.print.mnuPrint_Click(); }, WithFolders},
    Separator,
    Quit,
};

constexpr Command SearchMenu[] = {
    {Command::mnuSearch, "By &ICAO ...\tCtrl+F", [](Parts& p) { p.view.ShowList(), p.list.mnuSearch_Click(); },
     WithFolders},
    {Command::mnuCitySearch, "By &City ...\tCtrl+Shift+F",
     [](Parts& p) { p.view.ShowList(), p.list.mnuCitySearch_Click(); }, WithFolders},
    Separator,
    {Command::SearchAgain, "Search A&gain\tF3", [](Parts& p) { p.view.ShowList(), p.list.SearchAgain(); },
     WithFolders},
};

constexpr Command ViewMenu[] = {
    {Command::OnTheAir, "&On the Air\tCtrl+R", [](Parts& p) { p.on_the_air.Open(); }},
    Separator,
    Compact,
    {Command::OnTopMark, "Always on &Top", [](Parts& p) { Turn(p, p.state.marks.OnTop); }, Idle,
     [](const ProgramState& state) { return state.marks.OnTop; }},
};

constexpr Command PreferencesMenu[] = {
    {Command::mnuSelComm, "&Select Com Radio",
     [](Parts& p) { p.view.ShowList(), p.preferences.mnuSelComm_Click(); }},
    Separator,
    {Command::mnuRange, FirstRangeCaption, [](Parts& p) { p.preferences.mnuRange_Click(); }},
    Separator,
    {Command::mnuRecordedChatter, "&Recorded Chatter Options",
     [](Parts& p) { p.view.ShowList(), p.preferences.mnuRecordedChatter_Click(); }},
    Separator,
    {Command::mnuSetMute, "Set Default &Mute Key", [](Parts& p) { p.preferences.mnuSetMute_Click(); }},
    Separator,
    {Command::SoundDevices, "Sound &Device"},
    Separator,
    {Command::mnuPlaylist, "&Enable Playlists"},
    Separator,
    {Command::SharedFrequenciesMark, "Airports may share fre&quencies",
     [](Parts& p) { Turn(p, p.state.marks.SharedFrequencies); }, Idle,
     [](const ProgramState& state) { return state.marks.SharedFrequencies.value_or(false); }},
    {Command::SkipFaultyLinesMark, "&Leave out faulty lines",
     [](Parts& p) {
         Turn(p, p.state.marks.SkipFaultyLines);
         if (p.state.marks.SkipFaultyLines.value_or(false)) p.quiet_reload.Reload({});
     },
     WithFolders, [](const ProgramState& state) { return state.marks.SkipFaultyLines.value_or(false); }},
    {Command::StayOpenMark, "Stay &open when the simulator ends",
     [](Parts& p) { Turn(p, p.state.marks.StayOpen); }, Idle,
     [](const ProgramState& state) { return state.marks.StayOpen.value_or(false); }},
    {Command::HideWhenMinimisedMark, "&Hide when minimised",
     [](Parts& p) { Turn(p, p.state.marks.HideWhenMinimised); }, Idle,
     [](const ProgramState& state) { return state.marks.HideWhenMinimised; }},
    {Command::StartMinimisedMark, "Start m&inimised", [](Parts& p) { Turn(p, p.state.marks.StartMinimised); },
     Idle, [](const ProgramState& state) { return state.marks.StartMinimised; }},
};

template <std::size_t... Entry>
constexpr auto SoundDeviceCommands(std::index_sequence<Entry...>) {
    return std::array{Command{Command::DefaultSoundDevice + static_cast<int>(Entry), "",
                              [](Parts& p) { p.sound_menu.Pick(Entry); }}...};
}

constexpr auto SoundDevicesMenu = SoundDeviceCommands(std::make_index_sequence<Command::MostSoundDevices>());

constexpr Command HelpMenu[] = {
    {Command::HelpPages, "&Help Pages\tF1", [](Parts& p) { p.help.ShowHelp(); }},
    {Command::ProgramFolders, "&Program Folders", [](Parts& p) { p.help.ShowFolders(); }},
    {Command::ShowEvents, "&Event Log", [](Parts& p) { p.help.ShowEvents(p.events.Path()); }, WithFolders},
    {Command::mnuFSUPIC, "&FSUIPC Status", [](Parts& p) { p.status.mnuFSUPIC_Click(); }},
    Separator,
    {Command::AboutBox, "&About Quillon", [](Parts& p) { p.help.ShowAbout(); }},
};

constexpr Menu Menus[] = {
    {"&File", FileMenu}, {"&Search", SearchMenu}, {"&Preferences", PreferencesMenu},
    {"Vie&w", ViewMenu}, {"&Help", HelpMenu},
};

constexpr Command ListMenu[] = {
    {Command::PlayFeed, "&Play",
     [](Parts& p) {
         if (InAutomaticMode(p.state)) p.modes.optManual_Click();
         p.list.lvwDB_ItemClick();
     }},
    {Command::TuneFeed, "&Tune the Simulator", [](Parts& p) { p.list.TuneFeed(); }, InAutomaticMode},
    Separator,
    {Command::CopyAddress, "&Copy Address", [](Parts& p) { p.list.CopyAddress(); }},
    EditData,
};

constexpr Command IconEntries[] = {
    {Command::ShowWindow, "&Show Quillon", [](Parts& p) { p.view.Show(); }, Always},
    Separator,
    MuteSound,
    {Command::PlayOrStop, "&Play or Stop", [](Parts& p) { p.strip.PlayOrStop(); }},
    {Command::VolumeUp, "&Louder", [](Parts& p) { p.strip.ChangeVolume(VolumeStep); }},
    {Command::VolumeDown, "Qu&ieter", [](Parts& p) { p.strip.ChangeVolume(-VolumeStep); }},
    Compact,
    Separator,
    Quit,
};

constexpr Command InNoMenu[] = {
    {Command::optAuto, "", [](Parts& p) { p.modes.optAuto_Click(); }, InManualMode},
    {Command::optManual, "", [](Parts& p) { p.modes.optManual_Click(); }, InAutomaticMode},
    {Command::StripPlay, "", [](Parts& p) { p.strip.Play(); }},
    {Command::StripPause, "", [](Parts& p) { p.strip.Pause(); }},
    {Command::StripStop, "", [](Parts& p) { p.strip.Stop(); }},
    {Command::picATCNet, "", [](Parts& p) { p.display.picATCNet_Click(); }},
    {Command::optCom1, "", [](Parts& p) { p.preferences.SelectRadio(1); }},
    {Command::optCom1Stby, "", [](Parts& p) { p.preferences.SelectRadio(2); }},
    {Command::optCom2, "", [](Parts& p) { p.preferences.SelectRadio(3); }},
    {Command::optCom2Stby, "", [](Parts& p) { p.preferences.SelectRadio(4); }},
    {Command::cmdComClose, "", [](Parts& p) { p.preferences.cmdComClose_Click(); }},
    {Command::cmdClose2, "", [](Parts& p) { p.preferences.cmdClose2_Click(); }},
    {Command::lvwDB_ItemClick, "", [](Parts& p) { p.list.lvwDB_ItemClick(); }},
    {Command::Form_Click, "", [](Parts& p) { p.preferences.Form_Click(); }},
    {Command::frmShow_FSUIPC_Command1, "", [](Parts& p) { p.status.Command1_Click(); }, Always},
};

constexpr std::span<const Command> Tables[] = {FileMenu, SearchMenu, PreferencesMenu,  ViewMenu,   HelpMenu,
                                               ListMenu, InNoMenu,   SoundDevicesMenu, IconEntries};

} // namespace

std::span<const Menu> MenuBar() {
    return Menus;
}

std::span<const Command> RowMenu() {
    return ListMenu;
}

std::span<const Command> IconMenu() {
    return IconEntries;
}

const Command* FindCommand(int number) {
    for (const auto& table : Tables)
        for (const Command& command : table)
            if (command.Number == number && command.Handler != nullptr) return &command;
    return nullptr;
}

} // namespace quillon
