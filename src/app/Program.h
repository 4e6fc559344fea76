#pragma once

#include "app/AddFeed.h"
#include "app/FeedCheck.h"
#include "app/OnTheAir.h"
#include "app/Ports.h"
#include "state/ProgramState.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace quillon {

struct Parts;

/// The whole program behind its windows: owns state and logic, is given the ports, and is all that the windows
/// talk to. Each handler runs to its end before the next one starts; events that arrive meanwhile are dropped,
/// except quitting, which follows the running handler. Only the program's own waits let other handlers in.
/// While a handler waits for the simulator, events stand in line behind it, timers' ticks are dropped, and
/// quitting and the mute key work at once.
class Program {
  public:
    /// `command_line` is the text after the program's name.
    Program(const Ports& ports, const std::string& command_line);
    ~Program();

    const ProgramState& State() const { return state_; }

    /// The program's entry: shows the main window and connects to the simulator. Returns when connected, when
    /// the user has chosen Manual mode meanwhile, or when the program has ended.
    void ConnectToSimulator();

    /// Runs the command of that number (Command::Id) if it is enabled. Unknown numbers are ignored.
    void Run(int command);

    /// A tick of the form timer of that number, 1 to 5.
    void TimerTick(int id);

    /// A menu of the menu bar is about to be shown.
    void OpenMenu();

    /// The user selected a row of the list, or none; clicked a header; double-clicked a row; gave a column
    /// another width (twips).
    void SelectRow(std::optional<std::size_t> row);
    void lvwDB_ColumnClick(Column column);
    void lvwDB_DblClick(std::size_t row);
    void ResizeColumn(Column column, int width);

    /// The user picked an entry of the list of shortest or longest gaps; moved the volume's slider, 0 to 100.
    void cboMin_Click(std::size_t entry);
    void cboMax_Click(std::size_t entry);
    void SetVolume(int volume);

    /// Whether the command would run now: Quit and ShowWindow always, others while no handler runs.
    bool CanRun(int command) const;

    /// The user gave the full view's window another size; moved the window.
    void ResizeWindow(WindowSize size) { state_.form.Size = size; }
    void MoveWindow(WindowPlace place);

    /// The user has minimised the window. Without an icon in the notification area it stays in the task bar.
    void MinimiseWindow(bool has_icon);

    /// Brings the window to the front, also in the middle of a handler.
    void ShowWindow();

    /// An event of the add-feed dialog, while it is shown.
    void AddFeedEvent(const std::function<void(AddFeed&)>& event);

    /// An event of the catalogue check's dialog, while it is shown.
    void CheckFeedsEvent(const std::function<void(FeedCheck&)>& event);

    /// Two seconds have passed while "On the air" is open.
    void PollOnTheAir();

    /// The user selected a row of "On the air", or none; double-clicked one, or pressed Enter; closed it.
    void SelectOnTheAir(const std::optional<OnTheAirForm::Feed>& feed);
    void PickOnTheAir(const OnTheAirForm::Feed& feed);
    void CloseOnTheAir();

    /// The session ends: shuts down at once, whatever is running.
    void EndSession();

  private:
    template <typename Handler>
    void Handle(Handler handler);
    void PollLinkAndMuteKey();
    bool Connect();

    ProgramState state_;
    std::unique_ptr<Parts> parts_;
};

} // namespace quillon
