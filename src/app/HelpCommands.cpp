#include "app/HelpCommands.h"

#include "runtime/RuntimeError.h"

namespace quillon {

void HelpCommands::ShowHelp() {
    Open(shell_.ProgramFolder() + "help\\index.html", "The help pages");
}

void HelpCommands::ShowFolders() {
    const std::string chosen = dialogs_.ProgramFolders(folders_);
    if (!chosen.empty()) Open(chosen, "The folder");
}

void HelpCommands::ShowAbout() {
    constexpr const char* Program = "msinfo32.exe";
    if (!dialogs_.About()) return;
    try {
        shell_.Start(Program, "");
    } catch (const RuntimeError&) {
        TellFailure(Program, "The system information");
    }
}

void HelpCommands::Open(const std::string& address, const std::string& what) {
    if (!shell_.OpenAddress(address)) TellFailure(address, what);
}

void HelpCommands::TellFailure(const std::string& address, const std::string& what) {
    prompts_.Message("Quillon", what + " could not be opened:\r" + address, Icon::Exclamation);
}

} // namespace quillon
