#include "simlink/SimConnection.h"

#include "runtime/Number.h"
#include "simlink/BitwiseOps.h"
#include "simlink/LinkTexts.h"
#include "state/Services.h"

namespace quillon {

namespace {

constexpr const char* LookingForSimulator = "Looking for the simulator ...";

} // namespace

std::string VersionText(std::int32_t version_word) {
    std::string digits;
    for (const std::int32_t bits : {28, 24, 20, 16})
        digits += static_cast<char>('0' + (ShiftBits(version_word, bits, false) & 15));
    std::string text = digits.substr(0, 1) + "." + digits.substr(1);
    const int letter = 'a' + (version_word & 255) - 1;
    if ((version_word & 0xFFFF) != 0 && letter < 0x7F) text += static_cast<char>(letter);
    return text;
}

std::string TooOldText(const std::string& simulator, const std::string& version_text) {
    const double version = Val(version_text);
    std::string needed;
    if (simulator == "FSX" && version < 4.0)
        needed = "Quillon for FSX requires Version 4.0 or greater of the FSUIPC Module.  ";
    else if (version < 2.84)
        needed = "Quillon requires Version 2.8.4.2 or greater of FSUIPC Module.  ";
    else
        return "";
    return needed + "Your present version is " + version_text +
           "\r\rYou can get the latest version of FSUIPC at " + services::FsuipcDownload +
           "  It canalso be found on most of your favourite FlightSim sites.\r\rSorry!";
}

bool SimConnection::Connect() {
    Panel& news = state_.form.PanelAt(3);
    const auto stop_looking = [&] {
        if (news.Text == LookingForSimulator) news.Text.clear();
    };
    while (!link_.FsuipcReopen(state_.radio.FsuipcResult)) {
        state_.radio.NoConnection = true;
        if (news.Text.empty()) news.Text = LookingForSimulator;
        Pause(clock_, 2);
        if (state_.Ended || state_.form.optManual()) {
            stop_looking();
            return false;
        }
    }
    stop_looking();
    state_.radio.NoConnection = false;
    state_.form.Caption = "Quillon";
    return true;
}

std::string SimConnection::CheckVersion() {
    RadioState& radio = state_.radio;
    radio.FsuipcVersionText = VersionText(link_.FsuipcVersion());
    std::string too_old = TooOldText(SimName(link_.SimVersion()), radio.FsuipcVersionText);
    radio.SimConnected = too_old.empty();
    return too_old;
}

} // namespace quillon
