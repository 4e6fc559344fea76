#include "app/FsuipcStatus.h"

#include "runtime/Trim.h"
#include "simlink/LinkTexts.h"
#include "simlink/SimConnection.h"

#include <memory>

namespace quillon {

namespace {

constexpr std::uint32_t AccessDenied = 5;
constexpr const char* RadioTitles[] = {
    "Com1 Freq:      ", "Com1 Stby:      ", "Com2 Freq:      ", "Com2 Stby:      "};

std::string TroubleText(std::uint32_t system_error) {
    if (system_error != AccessDenied) return "";
    return "\r\rWindows does not let Quillon reach the simulator, because the simulator runs as administrator "
           "and "
           "Quillon does not. Start both in the same way: either the simulator without administrator rights, "
           "or "
           "Quillon with them (right-click it and choose \"Run as administrator\").";
}

} // namespace

void FsuipcStatus::mnuFSUPIC_Click() {
    if (radio_.Connecting) {
        Show({});
        return;
    }
    const auto answer = std::make_shared<Answer>();
    inquiry_.Ask([this, answer] { *answer = AskNow(); },
                 [this, answer] {
                     radio_.CommOffset = FindCommRadio(4)->Offset;
                     Show(*answer);
                 });
}

/// Runs beside the window's thread.
FsuipcStatus::Answer FsuipcStatus::AskNow() {
    Answer answer{link_.FsuipcVersion(), link_.SimVersion(), link_.LastSystemError(), {}};
    std::uint32_t result = 0;
    link_.BeginQuestions();
    for (std::int16_t number = 1; number <= 4; ++number) {
        const auto read = readout_.ReadRadio(FindCommRadio(number)->Offset, result);
        if (read) answer.radios.at(static_cast<std::size_t>(number) - 1) = read->frequency;
    }
    return answer;
}

void FsuipcStatus::Show(const Answer& answer) {
    radio_.FsuipcVersionText = VersionText(answer.version);
    std::string& text = form_.LabelCaption = "FSUIPC Ver:    " + radio_.FsuipcVersionText + "\r\r";
    for (std::size_t i = 0; i < answer.radios.size(); ++i) text += RadioTitles[i] + answer.radios[i] + "\r";
    text += "FlightSim:  " + ShownSimName(answer.simulator, answer.version);
    if (const CommRadio* radio = FindCommRadio(radio_.SelectedComm))
        text += "\rFollowed:   " + std::string(Trimmed(radio->Caption));
    form_.LabelRed = answer.simulator == 0;
    if (form_.LabelRed) text += "\r\rUnable to connect with the FSUIPC Module" + TroubleText(answer.trouble);
    form_.Visible = true;
}

} // namespace quillon
