#pragma once

namespace quillon {

// What a test or a screen reader finds the main window and its parts by.
inline constexpr wchar_t MainWindowClass[] = L"QuillonMain";

enum ControlId : int {
    IdFeedList = 1001,
    IdStatusBar = 1002,
    IdOptAuto = 1003,
    IdOptManual = 1004,
    IdLabel2 = 1005,
    IdPlay = 1006,
    IdPause = 1007,
    IdStop = 1008,
    IdVolume = 1009,
    IdLiveAtcPicture = 1010,
    IdLiveAtcLabel = 1011,
    IdQuit = 1012,   ///< `Command2`
    IdLabel3 = 1013, ///< seconds since the last recording
    IdLabel4 = 1014, ///< seconds from one recording to the next

    IdOptCom1 = 1021, ///< and the three behind it
    IdComClose = 1025,
    IdCboMin = 1031,
    IdCboMax = 1032,
    IdClose2 = 1033,

    IdMnuQuit = 2001,
    IdMnuSearch = 2002,
    IdMnuCitySearch = 2003,
    IdMnuSearchAgain = 2004,
    IdMnuSelComm = 2005,
    IdMnuRange = 2006,
    IdMnuRecordedChatter = 2007,
    IdMnuPlaylist = 2008,
    IdMnuFsuipc = 2009,
    IdMnuSetMute = 2010,
    IdMnuAddAtc = 2011,
    IdMnuBackup = 2012,
    IdMnuRestore = 2013,
    IdMnuEditData = 2014,
    IdMnuContents = 2015,
    IdMnuFolders = 2016,
    IdMnuAbout = 2017,
    IdMnuPlayFeed = 2018,
    IdMnuTuneFeed = 2019,
    IdMnuCopyAddress = 2020,
    IdMnuPrint = 2021,
    IdMnuReload = 2022,
    IdMnuCheckFeeds = 2023,
};

} // namespace quillon
