#include "app/FsuipcStatus.h"

#include "simlink/LinkTexts.h"
#include "simlink/SimConnection.h"

namespace quillon {

namespace {

constexpr std::uint32_t AccessDenied = 5;

} // namespace

void FsuipcStatus::mnuFSUPIC_Click() {
    const std::uint32_t simulator = link_.SimVersion();
    radio_.FsuipcVersionText = VersionText(link_.FsuipcVersion());
    form_.LabelCaption =
        "FSUIPC Ver:    " + radio_.FsuipcVersionText + "\r\r" + Radios() + "FlightSim:  " + SimName(simulator);
    form_.LabelRed = simulator == 0;
    if (form_.LabelRed) form_.LabelCaption += "\r\rUnable to connect with the FSUIPC Module" + Trouble();
    form_.Visible = true;
}

std::string FsuipcStatus::Radios() {
    constexpr const char* Titles[] = {
        "Com1 Freq:      ", "Com1 Stby:      ", "Com2 Freq:      ", "Com2 Stby:      "};
    std::string lines;
    for (std::int16_t number = 1; number <= 4; ++number) {
        radio_.CommOffset = FindCommRadio(number)->Offset;
        const auto read = readout_.ReadRadio(radio_.CommOffset);
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
