#pragma once

#include "state/ListView.h"
#include "state/ViewRequest.h"
#include "state/WindowPlace.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillon {

// The forms as data. The windows compare them with what is on screen and update what differs.

struct Label {
    std::string Caption;
    std::string ToolTipText;

    bool operator==(const Label&) const = default;
};

struct Panel {
    std::string Text;
    std::string ToolTipText;
    int WidthTwips = 0;

    bool operator==(const Panel&) const = default;
};

struct ComboBox {
    std::string Text;
    std::vector<std::string> Items;
};

/// Option buttons of one group, numbered from 1; at most one is on; 0: none.
struct OptionGroup {
    int Value = 0;
};

/// The panels of the status bar, from the left: what the player does, the frequency, the feed, and its address
/// or the selection mode.
enum class StatusPanel { Player, Frequency, Feed, Address };

/// Initial widths of the status bar's panels, in twips.
inline constexpr std::array<int, 4> PanelWidths{1200, 1200, 3500, 3000};

/// The range menu's caption until the settings have been read.
inline constexpr const char* FirstRangeCaption = "Set &Range";

/// Outer size of a window, in pixels at 96 dpi; 0 by 0 is the default size.
struct WindowSize {
    int Width = 0;
    int Height = 0;

    bool operator==(const WindowSize&) const = default;
};

/// The menu of sound devices, below its entry for the default device.
struct SoundDeviceMenu {
    std::vector<std::string> Names;
    std::size_t Checked = 0; ///< the device in use, from 1; 0: the default one

    bool operator==(const SoundDeviceMenu&) const = default;
};

struct frmATC {
    bool Visible = false;
    bool Hidden = false;                     ///< in the notification area, where only the icon is seen
    ViewRequest ShowRequest = 0;             ///< to bring the window to the front
    bool Compact = false;                    ///< without list, menu and status bar
    WindowSize Size;                         ///< of the full view; the compact one has a size of its own
    std::optional<WindowPlace> Place;        ///< of the full view; nothing: Windows chooses
    std::optional<WindowPlace> CompactPlace; ///< of the compact view; nothing: where the full view is
    std::string Caption = "Quillon";

    ListView lvwDB;
    ViewRequest ListFocusRequest = 0; ///< to give the list the keyboard, once the window is shown
    std::array<Panel, 4> StatusBar1;
    std::optional<std::uint32_t> StatusBarColor; ///< 0xBBGGRR; empty: the system's

    OptionGroup ComRadio; ///< 1 `optCom1`, 2 `optCom1Stby`, 3 `optCom2`, 4 `optCom2Stby`

    bool Frame1Visible = false;           ///< "Com Radio"
    bool frmRandomChatterVisible = false; ///< recorded chatter's gaps

    std::int16_t PageNumber = 0; ///< pages printed so far
    std::int16_t TotalPages = 0; ///< the page count in the footers

    Label Label2; ///< distance to the feed's airport, or what plays instead
    Label Label3; ///< seconds of the gap between recordings that have passed
    Label Label4; ///< length of the gap between recordings, s
    bool picATCNetVisible = false;
    int Volume = 100; ///< of the player strip, 0 to 100

    ComboBox cboMin{"20", {}};
    ComboBox cboMax{"30", {}};

    SoundDeviceMenu SoundDevices;
    std::string mnuRangeCaption = FirstRangeCaption;
    bool FoldersKnown = false; ///< commands that need the catalogue are enabled
    bool HasBackup = false;    ///< the catalogue can be restored

    Panel& operator[](StatusPanel panel) { return StatusBar1.at(static_cast<std::size_t>(panel)); }
};

/// The status of the simulator link. Modeless.
struct frmShow_FSUIPC {
    bool Visible = false;
    std::string LabelCaption;
    bool LabelRed = false;
};

struct frmSplash {
    bool Visible = false;
};

/// What kind of feed the add-feed dialog adds.
enum class SourceKind { LiveATC = 1, InternetRadio, PlayLists, WaveFiles };

/// The text boxes of the add-feed dialog.
enum class AddBox { txtICAO, txtCity, txtURL, txtFreq };

/// The dialog that adds feeds to the catalogue. The main window is disabled while it is shown.
struct frmAddATC {
    /// The box to be focused and the selection in it, in characters from 0.
    struct Focus {
        AddBox Box;
        std::ptrdiff_t SelStart;
        std::ptrdiff_t SelLength;
    };

    bool Visible = false;
    SourceKind Kind = SourceKind::LiveATC;
    std::array<std::string, 4> Texts; ///< of the boxes, in their order
    std::string AirportNote;          ///< beside `txtICAO`; empty if there is nothing to say
    std::string PromptCaption;        ///< above `txtURL`
    bool cmdBrowseVisible = false;
    std::string TestCaption;  ///< what came of trying the address, or that it is being tried
    std::string AddedCaption; ///< what was added last
    Focus WantedFocus{};
    ViewRequest FocusRequest = 0; ///< to move the keyboard to `WantedFocus`

    struct StatedFrequency {
        std::string Frequency;
        std::string Icao;
    };
    std::vector<StatedFrequency> lstAdd; ///< that the catalogue states
    std::size_t Feeds = 0;               ///< in the catalogue
    bool SharedFrequencies = false;      ///< each airport may have each frequency
    bool BadData = false;                ///< the last entry was rejected

    void RequestFocus(Focus focus) {
        WantedFocus = focus;
        ++FocusRequest;
    }

    std::string& operator[](AddBox box) { return Texts.at(static_cast<std::size_t>(box)); }
    const std::string& operator[](AddBox box) const { return Texts.at(static_cast<std::size_t>(box)); }
};

/// A finding of the catalogue's check, worst first.
enum class Finding { FaultyLine, Fails, Redirects, Answers };

/// The check of the catalogue. Modeless.
struct CheckFeedsForm {
    struct Row {
        Finding Kind;
        int Line; ///< of the catalogue, from 1
        std::string Feed;
        std::string Address;
        std::string Result;
    };

    bool Visible = false;
    bool Running = false;
    ViewRequest ActivationRequest = 0; ///< to bring the window to the front
    std::string LabelCaption;
    std::size_t Done = 0; ///< feeds tried
    std::size_t Total = 0;
    bool FaultsOnly = false;    ///< feeds that can be heard are not shown
    std::vector<Row> Rows;      ///< that are shown
    std::uint64_t Revision = 0; ///< changes with the rows and with `Done`
};

/// The feeds around the aircraft. Modeless.
struct OnTheAirForm {
    /// What tells a feed from all others.
    struct Feed {
        std::string Icao;
        std::string City;
        std::string Frequency;
        std::string Url;

        bool operator==(const Feed&) const = default;
    };

    /// A place as seen from the aircraft.
    struct Place {
        double NauticalMiles;
        double Bearing; ///< degrees from true north, [0, 360)

        bool operator==(const Place&) const = default;
    };

    enum class Mark { None, Tuned, Playing };

    struct Row {
        Feed What;
        Place Where;
        std::int32_t NauticalMiles; ///< whole ones, as the main window counts them
        Mark Now;

        bool operator==(const Row&) const = default;
    };

    bool Visible = false;
    ViewRequest ActivationRequest = 0; ///< to bring the window to the front
    std::string StateCaption;          ///< how many feeds there are, or why there are none
    std::string ListCaption;           ///< what Enter does
    std::vector<Row> Rows;             ///< nearest first
    std::vector<Place> Track;          ///< where the aircraft has been
    std::int32_t Reach = 0; ///< nautical miles: the range or, if there is none, the farthest row; 0: none
    std::optional<std::size_t> Selected;
    std::uint64_t Revision = 0; ///< changes whenever rows, track or reach do
};

} // namespace quillon
