#pragma once

namespace quillon {

// What a test or a screen reader finds the main window and its parts by. Controls that stand for a command bear
// its number (app/Commands.h).
inline constexpr wchar_t MainWindowClass[] = L"QuillonMain";

/// The name of the message with which a second start asks the first one to show its window.
inline constexpr wchar_t ShowMessage[] = L"Quillon.Show";

inline constexpr wchar_t AirPictureClass[] = L"QuillonAirPicture";

enum ControlId : int {
    IdFeedList = 1001,
    IdStatusBar = 1002,
    IdLabel2 = 1005,
    IdVolume = 1009,
    IdLabel3 = 1013, ///< seconds since the last recording
    IdLabel4 = 1014, ///< seconds from one recording to the next
    IdCompactState = 1015,
    IdCompactFrequency = 1016,
    IdCompactFeed = 1017,
    IdAnnouncement = 1018, ///< of one pixel, which a screen reader reads out whenever it changes
    IdCboMin = 1031,
    IdCboMax = 1032,
};

} // namespace quillon
