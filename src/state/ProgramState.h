#pragma once

#include "state/AirportList.h"
#include "state/Folders.h"
#include "state/Forms.h"
#include "state/FrequencyPool.h"
#include "state/PlaybackState.h"
#include "state/SoundSettings.h"

#include <string>
#include <vector>

namespace quillon {

/// Everything the program knows and shows.
struct ProgramState : PlaybackState {
    frmATC form;
    frmSplash splash;
    frmShow_FSUIPC fsuipc_status;
    frmAddATC add_feed;
    CheckFeedsForm check_feeds;
    OnTheAirForm on_the_air;

    Folders folders;

    FrequencyPool List1;               ///< free frequencies
    std::vector<std::string> lstUFreq; ///< keys of the frequencies that the catalogue states, sorted
    AirportList Airports;              ///< the airport file

    std::string LastSearchText; ///< of the last search that found something
    std::string StartupStep;
    std::string MessageText;
    std::string UserAgent; ///< what feed servers are told; empty: the program's own name
    SoundSettings sound;
    bool Busy = false; ///< a dialog or another program has the user: no timer ticks, no other command runs
    bool QuitRequested = false; ///< it follows the running handler, which need not ask or tell anything more
    bool Ended = false;         ///< the shut-down has run; the window closes
};

} // namespace quillon
