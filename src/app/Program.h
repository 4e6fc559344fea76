#pragma once

#include "app/AddFeed.h"
#include "app/FeedCheck.h"
#include "app/Ports.h"
#include "state/ProgramState.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace quillon {

/// The whole program behind its windows: owns state and logic, is given the ports, and is all that the windows
/// talk to. Every handler runs to its end before the next one starts; what comes meanwhile is dropped, except
/// closing, which follows the running handler. Only the program's own waits let other handlers in.
class Program {
  public:
    /// `command_line` is the text behind the program's name.
    Program(const Ports& ports, const std::string& command_line);
    ~Program();

    const ProgramState& State() const { return state_; }

    /// The program's entry: shows the main window and connects to the simulator. Returns when it is connected,
    /// when the user chose Manual mode meanwhile, or when the program has ended.
    void ConnectToSimulator();

    /// A tick of the form timer of that number, 1 to 5.
    void Timer_Timer(int id);

    void optAuto_Click();
    void optManual_Click();
    void picATCNet_Click();

    /// The user selected a row of the list, or none; picked the selected row; double-clicked it; clicked a
    /// header.
    void lvwDB_Select(std::optional<std::size_t> row);
    void lvwDB_ItemClick();
    void lvwDB_DblClick();
    void lvwDB_ColumnClick(Column column);

    /// The list's own menu: plays the selected feed, in Manual mode from now on, tunes the simulator to it,
    /// copies its address.
    void mnuPlayFeed_Click();
    void mnuTuneFeed_Click();
    void mnuCopyAddress_Click();

    void mnuSearch_Click();
    void mnuCitySearch_Click();
    void mnuSearchAgain_Click();

    void mnuPrint_Click();

    void mnuSelComm_Click();
    void cmdComClose_Click();
    void optCom_Click(std::int16_t number);
    void mnuRange_Click();
    void mnuSetMute_Click();
    void mnuRecordedChatter_Click();
    void cmdClose2_Click();
    void cboMin_Click(std::size_t entry);
    void cboMax_Click(std::size_t entry);
    void Form_Click();

    void mnuBackup_Click();
    void mnuRestore_Click();
    void mnuEditData_Click();

    void mnuAddATC_Click();

    /// An event of the add-feed dialog, while it is shown.
    void AddFeedEvent(const std::function<void(AddFeed&)>& event);

    void mnuCheckFeeds_Click();

    /// An event of the catalogue check's dialog, while it is shown.
    void CheckFeedsEvent(const std::function<void(FeedCheck&)>& event);

    void mnuContents_Click();
    void mnuFolders_Click();
    void mnuAbout_Click();
    void mnuFSUPIC_Click();
    void frmShow_FSUIPC_Command1_Click();

    // The player strip. In Automatic mode, where the cycle would undo pause and stop within a second, they mute
    // and play un-mutes.
    void cmdPlay_Click();
    void cmdPause_Click();
    void cmdStop_Click();
    void sldVolume_Change(int volume);
    void mnuReload_Click();

    /// The user gave the window another size, or a column another width (twips).
    void Form_Resize(WindowSize size) { state_.form.Size = size; }
    void lvwDB_ColumnResize(Column column, int width);

    /// Closing the window, the Quit command and the Quit button.
    void mnuQuit_Click();

    /// The session ends: shuts down at once, whatever is running.
    void EndSession();

  private:
    struct Logic;
    template <typename Handler>
    void Handle(Handler handler);
    template <typename Handler>
    void HandleAlways(Handler handler);
    bool Connect();

    ProgramState state_;
    bool in_handler_ = false;
    bool quit_requested_ = false;
    std::unique_ptr<Logic> logic_;
};

} // namespace quillon
