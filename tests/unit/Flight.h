#pragma once

#include "FakeSimulator.h"
#include "Fakes.h"
#include "TempFolder.h"
#include "app/Commands.h"
#include "app/Program.h"
#include "playback/SimWatch.h"

#include <memory>

namespace quillon {

inline constexpr std::uint32_t Com2 = 0x3118, Com2Standby = 0x311C, PauseFlag = 0x0264;

inline constexpr const char* Catalogue =
    "CYYZ|Toronto Tower|http://feeds.example/a|118.70\r\n"
    "EGLL|London Director|https://feeds.example/london/heathrow/director|119.72\r\n"
    "EGLL|Radio London|http://radio.example/b|119.00\r\n"
    "EGLL|Playlist one|C:\\lists\\one.WPL|119.05\r\n"
    "ZZZZ|Nowhere|http://feeds.example/z|119.10\r\n";
inline constexpr const char* AirportLines = "ICAO,latitude,longitude\r\n"
                                            "CYYZ,N43*00.00,W079*00.00\r\n"
                                            "EGLL,N51*00.00,W001*00.00\r\n";

/// The enabled timers' numbers.
inline std::string EnabledTimers(const CycleState& cycle) {
    std::string on;
    for (int id = 1; id <= 5; ++id) on += cycle.Timer(id).Enabled ? std::to_string(id) : "";
    return on;
}

/// SimWatch alone, with what it needs.
struct TickBench {
    ProgramState state;
    FakeSimulator simulator;
    FakeClock clock;
    FakePlayer player;
    FakePrompts prompts;
    ErrorTrap trap{state.StartupStep, state.MessageText, prompts.AsReport()};
    FsuipcClient link{simulator, simulator, clock};
    RadioReadout readout{link};
    FakeInquiry inquiry;
    ReceptionRange range{state.Airports, trap};
    ScreenTexts texts{state, state.form};
    Notices notices{texts, clock};
    TuningCheck tuning_check{state.radio, notices, clock};
    SimWatch sim{state, texts, link, readout, inquiry, inquiry, tuning_check, range, player};
};

/// The whole program on fakes, over Toronto, with five feeds and three folders of recordings.
class Flight : public TempFolder {
  protected:
    Flight() {
        MakeFolder("Quillon");
        MakeFolder("Quillon\\ATC\\CYYZ_T");
        Write("Quillon\\live_atc_feeds.txt", Catalogue);
        Write("Quillon\\Airport.dat", AirportLines);
        Write("Quillon\\ATC\\CYYZ_T\\b.WAV", "");
        Write("Quillon\\ATC\\CYYZ_T\\a.wav", "");
        Write("Quillon\\ATC\\CYYZ_T\\notes.txt", "");
        shell.application_data = folder;
        simulator.FlyTo(43.01, -79.01);
        clock.events = [this] { return !program || !program->State().Ended; };
    }

    void Start(const std::string& command_line = "") {
        ++simulator.process;
        disk.Finish(); // for the program before, while it is there
        const Ports ports{simulator, simulator,  clock,   player,   player, prompts,  dialogs,
                          display,   shell,      files,   regional, page,   keyboard, printer,
                          probe,     background, devices, lister,   disk};
        program = std::make_unique<Program>(ports, command_line);
        program->ConnectToSimulator();
    }

    /// Without a simulator: the search for one ends with a change to Manual mode.
    void StartByHand() {
        clock.events = [this] {
            if (state().form.Visible) program->Run(Command::optManual);
            return true;
        };
        Start();
        clock.events = {};
    }

    /// One tick of whichever cycle timer is enabled; at most one may be.
    void Tick() {
        int enabled = 0;
        for (int id = 1; id <= 4; ++id) enabled = state().cycle.Timer(id).Enabled ? enabled * 10 + id : enabled;
        ASSERT_LT(enabled, 10) << "two cycle timers at once";
        if (enabled != 0) program->TimerTick(enabled);
    }

    void TuneTo(const std::string& frequency) {
        simulator.Tune(Com2Standby, frequency);
        Tick();
    }

    /// Runs a command that asks for a text.
    void RunAnswering(int command, const std::string& text) {
        prompts.answer = text;
        program->Run(command);
    }

    /// Clicks a row of the list.
    void Pick(std::size_t row) {
        program->SelectRow(row);
        program->Run(Command::lvwDB_ItemClick);
    }

    const ProgramState& state() const { return program->State(); }
    std::string panel(std::size_t number) const { return state().form.StatusBar1.at(number - 1).Text; }
    std::string distance() const { return state().form.Label2.Caption; }

    FakeSimulator simulator;
    FakeClock clock;
    FakePlayer player;
    FakePrompts prompts;
    FakeDialogs dialogs;
    FakeDisplay display;
    FakeShell shell;
    FakeUserFiles files;
    FakeRegionalSettings regional;
    FakeCodePage page;
    FakeKeyboard keyboard;
    FakePrinter printer;
    FakeProbe probe;
    FakeSoundDevices devices;
    FakeBackground background;
    FakeFolderLister lister;
    FakeBackground disk;
    std::unique_ptr<Program> program;
};

} // namespace quillon
