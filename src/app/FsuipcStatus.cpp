#include "app/FsuipcStatus.h"

#include "simlink/LinkTexts.h"
#include "simlink/SimConnection.h"

namespace quillon {

namespace {

constexpr std::uint32_t AccessDenied = 5;

} // namespace

void FsuipcStatus::mnuFSUPIC_Click() {
    frmShow_FSUIPC& dialog = state_.fsuipcStatus;
    const std::uint32_t simulator = link_.SimVersion();
    state_.radio.FsuipcVersionText = VersionText(link_.FsuipcVersion());
    dialog.LabelCaption = "FSUIPC Ver:    " + state_.radio.FsuipcVersionText + "\r\r" + Radios() +
                          "FlightSim:  " + SimName(simulator);
    dialog.LabelRed = simulator == 0;
    if (dialog.LabelRed) dialog.LabelCaption += "\r\rUnable to connect with the FSUIPC Module" + Trouble();
    dialog.Visible = true;
}

std::string FsuipcStatus::Radios() {
    constexpr const char* Titles[] = {
        "Com1 Freq:      ", "Com1 Stby:      ", "Com2 Freq:      ", "Com2 Stby:      "};
    std::string lines;
    for (std::int16_t number = 1; number <= 4; ++number) {
        state_.radio.CommOffset = FindCommRadio(number)->Offset;
        const auto read = readout_.ReadRadio(state_.radio.CommOffset);
        lines += Titles[number - 1] + (read ? read->frequency : "") + "\r";
    }
    return lines;
}

std::string FsuipcStatus::Trouble() const {
    if (link_.LastSystemError() != AccessDenied) return "";
    return "\r\rWindows does not let Quillon reach the simulator, because the simulator runs as administrator "
           "and "
           "Quillon does not. Start both in the same way: either the simulator without administrator rights, "
           "or "
           "Quillon with them (right-click it and choose \"Run as administrator\").";
}

} // namespace quillon
