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

    IdMnuQuit = 2001,
};

} // namespace quillon
