#pragma once

#include "app/AddFeed.h"
#include "app/CatalogueReload.h"
#include "app/CatalogueWatch.h"
#include "app/DataMove.h"
#include "app/EventNotes.h"
#include "app/FeedCheck.h"
#include "app/FeedListCommands.h"
#include "app/FsuipcStatus.h"
#include "app/HandlerGate.h"
#include "app/HelpCommands.h"
#include "app/Maintenance.h"
#include "app/OnTheAir.h"
#include "app/PlayerStrip.h"
#include "app/Ports.h"
#include "app/Preferences.h"
#include "app/PrintCommand.h"
#include "app/ShutDown.h"
#include "app/SoundMenu.h"
#include "app/StartUp.h"
#include "app/StayOpen.h"
#include "app/WindowView.h"
#include "playback/AutomaticTuning.h"
#include "playback/ManualMonitoring.h"
#include "playback/MuteKey.h"
#include "playback/Notices.h"
#include "playback/PlayingRow.h"
#include "playback/RecordedChatter.h"
#include "playback/SelectionModes.h"
#include "simlink/SimConnection.h"

namespace quillon {

/// The classes that the program consists of; each one needs only those above it.
struct Parts {
    Parts(ProgramState& program_state, const Ports& outside, std::string arguments);

    /// Runs a handler or a part of one, and quits after it if it was asked to.
    void RunTrapped(const HandlerGate::Handler& handler);

    /// Tells a new user what to do next, unless a feed is already tuned.
    void TellFirstSteps();

    /// Tells the user what of the catalogue cannot be heard.
    void TellMissing(const LoadReport& report);

    ProgramState& state;
    std::string command_line;
    HandlerGate gate;
    GatedClock clock;
    Ports ports;
    EventLog events{state.folders, ports.disk, clock};
    EventNotes event_notes{state, events};
    ErrorTrap trap{state.StartupStep, state.MessageText,
                   [this](const std::string& title, const std::string& text, Icon icon) {
                       events.Add(title + ": " + text);
                       ports.prompts.Message(title, text, icon);
                   }};
    FsuipcClient link{ports.link, ports.memory, clock};
    RadioReadout readout{link};
    SimConnection connection{state.radio, link, ports.background, clock};
    ScreenTexts texts{state, state.form};
    RegionalNumbers regional{ports.regional};
    Settings settings{state, trap};
    RememberedState remembered{state.form, state.marks, state.sound, state.UserAgent, state.folders};
    AirportPositions positions{state.Airports};
    Airports airports{state.Airports, ports.code_page, trap};
    FeedLoader loader{state,
                      ports.prompts,
                      ports.code_page,
                      ports.live,
                      trap,
                      [this] { remembered.Write(); },
                      [this](const LoadReport& report) { TellMissing(report); }};
    ReceptionRange range{state.Airports, trap};
    ShutDown shut_down{state.Ended, state.form, settings,         remembered,
                       regional,    link,       ports.background, ports.player};
    StayOpen stay_open{state, connection, settings, remembered, shut_down, ports.prompts};
    CatalogueReload reload{state.cycle, loader};
    DataMove data_move{state.folders, state.StartupStep, ports.prompts, ports.shell, ports.code_page, trap};
    StarterData starter{state.form.lvwDB, state.folders, state.StartupStep, ports.prompts, ports.shell};
    Notices notices{texts, clock};
    StartUp start_up{state,
                     ports,
                     trap,
                     texts,
                     {regional, settings, remembered, airports, positions, loader, data_move, starter, reload,
                      notices, events},
                     command_line};
    PlayerDisplay display{state, texts, ports.player, ports.live, ports.shell};
    SoundMenu sound_menu{state.form.SoundDevices, state.sound, ports.devices, notices};
    TuningCheck tuning_check{state.radio, notices, clock};
    SimWatch sim{state, texts, link, readout, gate, stay_open, tuning_check, range, ports.player};
    FeedIndex index{state.form.lvwDB};
    FeedChoice choice{state, state.form.lvwDB, index, positions};
    ShuffleBag bag{state.chatter, state.folders, ports.folders, state.StartupStep};
    AutomaticTuning tuning{state, state.form.lvwDB, texts, sim, choice, display, ports.player, bag, trap};
    RecordedChatter chatter{state, state.LastSearchText, texts, sim, choice, ports.player, bag, clock, trap};
    PlayingRow playing_row{state.feed, state.form.lvwDB};
    SelectionModes modes{state, state.form.lvwDB, texts, ports.player};
    ManualMonitoring manual{state, texts, display, ports.player, bag, trap};
    RadioTuning radio_tuning{state.radio, link, gate};
    FeedListCommands list{state,       texts,        ports.player, bag, ports.prompts,
                          ports.shell, radio_tuning, tuning_check, trap};
    QuietReload quiet_reload{state, state.form.lvwDB, loader, reload, choice, texts, ports.player};
    CatalogueWatch watch{state, gate, ports.disk, ports.code_page, clock, quiet_reload, airports, positions};
    FeedsAround around{state.form.lvwDB, index, positions};
    OnTheAir on_the_air{state.on_the_air, state, state.form.lvwDB, around, link, readout, gate, list, clock};
    Preferences preferences{state, texts, ports.prompts, ports.dialogs, ports.shell, trap};
    WindowView view{state, remembered, preferences};
    Maintenance maintenance{state, ports.prompts, ports.shell, ports.files, clock, reload, trap};
    AddFeed add_feed{state, positions, ports.prompts, ports.code_page, ports.probe, reload, trap};
    FeedCheck feed_check{
        state.check_feeds, state.form.lvwDB, state.marks,     positions, state.folders, state.UserAgent,
        ports.probe,       ports.shell,      ports.code_page, clock,     trap};
    HelpCommands help{state.folders, ports.prompts, ports.dialogs, ports.shell};
    PrintCommand print{state.form, state.LastSearchText, ports.prompts, ports.printer, clock, trap};
    FsuipcStatus status{state.fsuipc_status, state.radio, link, readout, gate};
    Mute mute{state, texts, ports.player};
    MuteKey mute_key{state, mute, ports.keyboard, ports.display, clock};
    PlayerStrip strip{state, state.form.Volume, ports.player, ports.live, mute};
};

} // namespace quillon
