#pragma once

#include "app/CatalogueReload.h"
#include "app/DataMove.h"
#include "app/Ports.h"
#include "app/RegionalNumbers.h"
#include "app/StarterData.h"
#include "catalogue/FeedLoader.h"
#include "geo/AirportPositions.h"
#include "geo/Airports.h"
#include "playback/Notices.h"
#include "playback/ScreenTexts.h"
#include "runtime/ErrorTrap.h"
#include "settings/EventLog.h"
#include "settings/RememberedState.h"
#include "settings/Settings.h"
#include "state/ProgramState.h"

#include <string>

namespace quillon {

/// The main window's load sequence.
class StartUp {
  public:
    struct Parts {
        RegionalNumbers& regional;
        Settings& settings;
        RememberedState& remembered;
        Airports& airports;
        AirportPositions& positions;
        FeedLoader& loader;
        DataMove& data_move;
        StarterData& starter;
        CatalogueReload& reload;
        Notices& notices;
        EventLog& events;
    };

    StartUp(ProgramState& state, const Ports& ports, ErrorTrap& trap, ScreenTexts& texts, const Parts& parts,
            std::string command_line)
        : state_(state),
          ports_(ports),
          trap_(trap),
          texts_(texts),
          parts_(parts),
          command_line_(std::move(command_line)) {}

    /// Offers to create missing files, loads the data behind the splash and then shows the main window, even if
    /// a step failed. Takes about four seconds, serving window events. If there is nothing to hear then, the
    /// offer is made then.
    void Form_Load();

  private:
    void Load(std::int16_t least_seconds);
    void CreateMissingFiles();
    bool CreateStarterData();
    void TakeUpStarterData();
    void ReplaceSeparators();
    void SetUpForm();
    void FillGapCombos();
    void PrepareFiles();
    void EnableMenus();
    void RestorePlayer();
    void LoadData();
    void ApplyStartVolume();

    ProgramState& state_;
    Ports ports_;
    ErrorTrap& trap_;
    ScreenTexts& texts_;
    Parts parts_;
    std::string command_line_;
};

} // namespace quillon
