#pragma once

#include "state/ProgramState.h"

#include <span>

namespace quillon {

struct Parts;

/// A row of the table of commands: something that the user can ask for with one click or key.
struct Command {
    /// The ids of the main window's controls and menu entries.
    enum Id : int {
        optAuto = 1003,
        optManual = 1004,
        StripPlay = 1006,
        StripPause = 1007,
        StripStop = 1008,
        StripMute = 1011,
        picATCNet = 1010,

        optCom1 = 1021,
        optCom1Stby = 1022,
        optCom2 = 1023,
        optCom2Stby = 1024,
        cmdComClose = 1025,
        cmdClose2 = 1033,

        mnuQuit = 2001, ///< also the button `Command2`
        mnuSearch = 2002,
        mnuCitySearch = 2003,
        SearchAgain = 2004,
        mnuSelComm = 2005,
        mnuRange = 2006,
        mnuRecordedChatter = 2007,
        mnuPlaylist = 2008,
        mnuFSUPIC = 2009,
        mnuSetMute = 2010,
        mnuAddATC = 2011,
        mnuBackup = 2012,
        mnuRestore = 2013,
        mnuEditData = 2014,
        HelpPages = 2015,
        ProgramFolders = 2016,
        AboutBox = 2017,
        PlayFeed = 2018,
        TuneFeed = 2019,
        CopyAddress = 2020,
        mnuPrint = 2021,
        ReloadFeed = 2022,
        CheckFeeds = 2023,
        StayOpenMark = 2024,
        SharedFrequenciesMark = 2025,

        SoundDevices = 2040,     ///< a menu
        SoundDevicesNote = 2041, ///< its last entry
        OnTheAir = 2050,
        CompactView = 2051, ///< also the button that leads back
        OnTopMark = 2052,
        HideWhenMinimisedMark = 2053,
        StartMinimisedMark = 2054,
        ShowWindow = 2055,
        PlayOrStop = 2056,
        VolumeUp = 2057,
        VolumeDown = 2058,
        SkipFaultyLinesMark = 2059,
        ShowEvents = 2060,
        DefaultSoundDevice = 2100, ///< the first of its entries

        // These have no control or menu entry of their own.
        lvwDB_ItemClick = 3001,
        Form_Click = 3003,
        frmShow_FSUIPC_Command1 = 3004,
    };

    /// Entries of the menu of sound devices, with the default one.
    static constexpr std::size_t MostSoundDevices = 32;

    int Number = 0;                    ///< an Id; 0 for a menu's separator
    const char* Text = "";             ///< of the menu entry, with its key after a tab: "Ctrl+Shift+F", "F3"
    void (*Handler)(Parts&) = nullptr; ///< null: does nothing
    bool (*Enabled)(const ProgramState&) = [](const ProgramState& state) { return !state.Busy; };
    bool (*Checked)(const ProgramState&) = nullptr; ///< of a menu entry with a check mark
};

struct Menu {
    const char* Title;
    std::span<const Command> Entries;
};

/// The main window's menus, from left to right.
std::span<const Menu> MenuBar();

/// The context menu of a row of the list; its first entry is the default.
std::span<const Command> RowMenu();

/// The menu of the icon in the notification area; its first entry is the default.
std::span<const Command> IconMenu();

/// Null for a number that does nothing.
const Command* FindCommand(int number);

} // namespace quillon
