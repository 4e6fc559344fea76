#include "win32/window/MainCommands.h"

#include "win32/window/ControlIds.h"

namespace quillon {

namespace {

/// The handlers of everything that is clicked and needs no further word.
struct Click {
    int id;
    void (Program::*handler)();
};
constexpr Click Clicks[] = {
    {IdPlay, &Program::cmdPlay_Click},
    {IdPause, &Program::cmdPause_Click},
    {IdStop, &Program::cmdStop_Click},
    {IdQuit, &Program::mnuQuit_Click},
    {IdLiveAtcPicture, &Program::picATCNet_Click},
    {IdLiveAtcLabel, &Program::picATCNet_Click},
    {IdComClose, &Program::cmdComClose_Click},
    {IdClose2, &Program::cmdClose2_Click},
    {IdMnuQuit, &Program::mnuQuit_Click},
    {IdMnuPrint, &Program::mnuPrint_Click},
    {IdMnuSearch, &Program::mnuSearch_Click},
    {IdMnuCitySearch, &Program::mnuCitySearch_Click},
    {IdMnuSearchAgain, &Program::mnuSearchAgain_Click},
    {IdMnuSelComm, &Program::mnuSelComm_Click},
    {IdMnuRange, &Program::mnuRange_Click},
    {IdMnuSetMute, &Program::mnuSetMute_Click},
    {IdMnuRecordedChatter, &Program::mnuRecordedChatter_Click},
    {IdMnuReload, &Program::mnuReload_Click},
    {IdMnuFsuipc, &Program::mnuFSUPIC_Click},
    {IdMnuAddAtc, &Program::mnuAddATC_Click},
    {IdMnuBackup, &Program::mnuBackup_Click},
    {IdMnuRestore, &Program::mnuRestore_Click},
    {IdMnuEditData, &Program::mnuEditData_Click},
    {IdMnuCheckFeeds, &Program::mnuCheckFeeds_Click},
    {IdMnuPlayFeed, &Program::mnuPlayFeed_Click},
    {IdMnuTuneFeed, &Program::mnuTuneFeed_Click},
    {IdMnuCopyAddress, &Program::mnuCopyAddress_Click},
    {IdMnuContents, &Program::mnuContents_Click},
    {IdMnuFolders, &Program::mnuFolders_Click},
    {IdMnuAbout, &Program::mnuAbout_Click},
};

} // namespace

void RunCommand(Program& program, int id) {
    const ProgramState& state = program.State();
    // A radio button also says that it was clicked when it only gets the keyboard.
    if (id == IdOptAuto && state.cycle.optManual()) program.optAuto_Click();
    if (id == IdOptManual && !state.cycle.optManual()) program.optManual_Click();
    const int com = id - IdOptCom1 + 1;
    if (com >= 1 && com <= 4 && state.form.optCom.Value != com)
        program.optCom_Click(static_cast<std::int16_t>(com));
    for (const Click& click : Clicks)
        if (click.id == id) (program.*click.handler)();
}

} // namespace quillon
