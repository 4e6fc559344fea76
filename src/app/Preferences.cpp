#include "app/Preferences.h"

#include "runtime/Number.h"
#include "settings/Settings.h"

namespace quillon {

namespace {

std::int16_t PickEntry(ComboBox& combo, std::size_t entry) {
    combo.Text = combo.Items.at(entry);
    return CInt(Val(combo.Text));
}

} // namespace

void Preferences::mnuSelComm_Click() {
    state_.form.Frame1Visible = state_.mute.FrameOpen = true;
}

// Closing either frame enables the mute key again, even if the other is still shown.
void Preferences::cmdComClose_Click() {
    state_.form.Frame1Visible = state_.mute.FrameOpen = false;
}

void Preferences::SelectRadio(std::int16_t number) {
    state_.form.ComRadio.Value = number;
    state_.radio.SelectedComm = number;
}

void Preferences::mnuRecordedChatter_Click() {
    state_.form.frmRandomChatterVisible = state_.mute.FrameOpen = true;
}

void Preferences::cmdClose2_Click() {
    state_.form.frmRandomChatterVisible = state_.mute.FrameOpen = false;
}

void Preferences::cboMin_Click(std::size_t entry) {
    state_.chatter.ChatterMinSeconds = PickEntry(state_.form.cboMin, entry);
}

void Preferences::cboMax_Click(std::size_t entry) {
    state_.chatter.ChatterMaxSeconds = PickEntry(state_.form.cboMax, entry);
}

void Preferences::mnuSetMute_Click() {
    if (const auto key = dialogs_.MuteKey(state_.mute.MuteKeyCode)) state_.mute.MuteKeyCode = *key;
}

void Preferences::mnuRange_Click() {
    const std::string range = std::to_string(state_.range.ReceptionRange);
    const std::string answer =
        prompts_.InputBox("Set Reception Range",
                          "Please Input a Reception Range\r       (Numbers only)\r\r"
                          "Present Reception Range is: " +
                              range + " Nautical Miles\rEnter 0 to disable the Range function",
                          range);
    trap_.RunCommand("Set Range Error", Icon::Exclamation, [&] { SetRange(answer); });
}

void Preferences::SetRange(const std::string& answer) {
    state_.StartupStep = "Set Range";
    if (!answer.empty()) state_.range.ReceptionRange = CInt(Val(answer));
    state_.form.mnuRangeCaption = RangeCaption(state_.range.ReceptionRange);
    if (!state_.form.Label2.ToolTipText.empty()) texts_.ShowRange(state_.range.ReceptionRange);
    state_.StartupStep.clear();
}

void Preferences::Form_Click() {
    shell_.PlaySoundFile(state_.folders.AppPath + "ddt");
}

} // namespace quillon
