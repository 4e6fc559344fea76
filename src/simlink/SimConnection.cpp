#include "simlink/SimConnection.h"

#include "runtime/Number.h"
#include "simlink/BitwiseOps.h"
#include "simlink/LinkTexts.h"
#include "state/Services.h"

namespace quillon {

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

bool SimConnection::Connect(const std::function<bool()>& wait) {
    while (!link_.FsuipcReopen(radio_.FsuipcResult)) {
        radio_.NoConnection = true;
        if (!wait()) return false;
    }
    radio_.NoConnection = false;
    return true;
}

std::string SimConnection::CheckVersion() {
    radio_.FsuipcVersionText = VersionText(link_.FsuipcVersion());
    std::string too_old = TooOldText(SimName(link_.SimVersion()), radio_.FsuipcVersionText);
    radio_.SimConnected = too_old.empty();
    return too_old;
}

} // namespace quillon
