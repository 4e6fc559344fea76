#pragma once

#include "FakeSimulator.h"
#include "Fakes.h"
#include "app/Commands.h"
#include "app/Program.h"

#include <filesystem>
#include <memory>
#include <string>
#include <unistd.h>

namespace quillon {

/// A catalogue of that many feeds. Every other one states its frequency, and none repeats another's.
inline std::string CatalogueOf(std::size_t feeds) {
    std::string text;
    for (std::size_t i = 0; i < feeds; ++i) {
        const std::string number = std::to_string(200'000 + (i * 7919) % 700'001); // a prime: shuffled
        text += "K" + number.substr(2) + "|Springfield " + number +
                " - Tower and Ground|http://feeds.example/" + number + "/stream|" + (i % 2 == 0 ? number : "") +
                "\r\n";
    }
    return text;
}

/// A folder that goes with its owner.
struct Folder {
    Folder() {
        std::string pattern = std::filesystem::temp_directory_path() / "quillon-XXXXXX";
        path = mkdtemp(pattern.data());
    }
    ~Folder() { std::filesystem::remove_all(path); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string path;
};

inline constexpr std::uint32_t FollowedRadio = 0x311C; ///< unless the user chooses another

/// The whole program on fakes, connected and in range of the feed that is tuned and playing.
template <typename Simulator = FakeSimulator>
struct Cockpit {
    Cockpit(const std::string& catalogue, const std::string& airports) {
        std::filesystem::create_directories(folder.path + "/Quillon");
        WriteFile(folder.path + "\\Quillon\\live_atc_feeds.txt", WriteMode::Anew,
                  "CYYZ|Toronto Tower|http://feeds.example/a|118.70\r\n" + catalogue);
        WriteFile(folder.path + "\\Quillon\\Airport.dat", WriteMode::Anew, airports);
        shell.application_data = folder.path;
        simulator.FlyTo(43.01, -79.01);
        simulator.Tune(FollowedRadio, "118.70");
        program.ConnectToSimulator();
        program.TimerTick(1);
    }

    Folder folder;
    Simulator simulator;
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
    FakeBackground background;
    FakeSoundDevices devices;
    FakeFolderLister lister;
    FakeBackground disk;
    Program program{{simulator, simulator, clock, player, player, prompts, dialogs, display, shell, files,
                     regional, page, keyboard, printer, probe, background, devices, lister, disk},
                    ""};
};

} // namespace quillon
