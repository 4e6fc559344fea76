#include "simlink/SimConnection.h"

#include "runtime/Number.h"
#include "simlink/BitwiseOps.h"
#include "simlink/LinkTexts.h"
#include "state/Services.h"

#include <memory>

namespace quillon {

namespace {

constexpr std::chrono::milliseconds Slice{20};

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

bool SimConnection::Connect(const std::function<bool()>& wanted, const std::function<void()>& failed) {
    bool open = Open(wanted);
    while (!open && wanted()) {
        radio_.NoConnection = true;
        failed();
        open = wanted() && Open(wanted);
    }
    radio_.Connecting = false;
    radio_.NoConnection = !open;
    return open;
}

/// The attempt goes on by itself if it is no longer wanted.
bool SimConnection::Open(const std::function<bool()>& wanted) {
    struct Attempt {
        bool done = false;
        bool open = false;
        std::uint32_t result = 0;
    };
    const auto attempt = std::make_shared<Attempt>();
    background_.Start([this, attempt] { attempt->open = link_.FsuipcReopen(attempt->result); },
                      [attempt] { attempt->done = true; });
    while (!attempt->done && wanted() && clock_.ServeEvents(Slice)) {
    }
    if (!attempt->done) return false;
    radio_.FsuipcResult = attempt->result;
    return attempt->open;
}

std::string SimConnection::CheckVersion() {
    radio_.FsuipcVersionText = VersionText(link_.FsuipcVersion());
    std::string too_old = TooOldText(SimName(link_.SimVersion()), radio_.FsuipcVersionText);
    radio_.SimConnected = too_old.empty();
    return too_old;
}

} // namespace quillon
