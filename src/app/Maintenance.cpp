#include "app/Maintenance.h"

#include "catalogue/FeedFile.h"
#include "playback/CurrentFeed.h"
#include "runtime/Files.h"

namespace quillon {

namespace {

// The spelling of the same two files in messages.
constexpr const char* ShownCatalogueName = "Live_ATC_Feeds.txt";
constexpr const char* ShownBackupName = "Live_ATC_Feeds.bak";

/// The step names the file that is written, so an error of another one must name that one.
template <typename Action>
auto Naming(const std::string& path, Action action) {
    try {
        return action();
    } catch (const RuntimeError& error) {
        throw RuntimeError{error.Number, error.Description + ": " + path};
    }
}

std::string ReadOther(const std::string& path) {
    return Naming(path, [&] { return ReadFile(path); });
}

void WriteOther(const std::string& path, const std::string& content) {
    Naming(path, [&] { ReplaceFile(path, content); });
}

} // namespace

void Maintenance::mnuBackup_Click() {
    state_.MessageText =
        "Please confirm you want to backup the \r\r" + state_.folders.DataPath + ShownCatalogueName + " file?";
    if (!prompts_.Confirm("Confirmation", state_.MessageText, Choices::YesNo)) return;
    trap_.RunCommand("Backup Error", Icon::Exclamation, [this] { BackUp(); });
}

void Maintenance::BackUp() {
    const std::string backup = state_.folders.DataPath + BackupName;
    state_.StartupStep = "Backup " + state_.folders.DataPath + ShownBackupName;
    ReplaceFile(backup, ReadOther(state_.folders.DataPath + CatalogueName));
    files_.SetFileDateTime(backup, clock_.Now());
    state_.form.HasBackup = true;
    state_.StartupStep.clear();
    state_.MessageText = "Backup file created successfully!";
    prompts_.Message("Success", state_.MessageText, Icon::Information);
}

void Maintenance::mnuRestore_Click() {
    state_.MessageText =
        "Restoring will move the existing Live_ATC_Feeds.txt file to the Recycle Bin and replace it "
        "with the contents of the Live_ATC_Feeds.bak file.\r\rDo you want to continue?\r\r"
        "(Windows may also ask about the Recycle Bin. The file is replaced even if you answer No there.)";
    if (!prompts_.Confirm("Confirmation", state_.MessageText, Choices::YesNoCancel)) return;
    trap_.RunCommand("Restore Error", Icon::Exclamation, [this] { Restore(); });
}

/// Nothing is lost where there is no recycle bin: a copy of the old catalogue stays beside the new one.
void Maintenance::Restore() {
    const std::string catalogue = state_.folders.DataPath + CatalogueName;
    const std::string replaced = state_.folders.DataPath + ReplacedName;
    state_.StartupStep = "Restore " + catalogue;
    const std::string backup = ReadOther(state_.folders.DataPath + BackupName);
    if (FileExists(catalogue)) WriteOther(replaced, ReadFile(catalogue));
    files_.Delete2Recycle(catalogue);
    try {
        ReplaceFile(catalogue, backup);
    } catch (const RuntimeError& error) {
        if (FileExists(catalogue)) throw; // the user kept it when the shell asked
        throw RuntimeError{error.Number, error.Description + "\r\rThe old catalogue is kept in " + replaced};
    }
    reload_.Run(StopCycle(state_.cycle));
    state_.StartupStep.clear();
}

void Maintenance::mnuEditData_Click() {
    const bool cycle_ran = StopCycle(state_.cycle);
    state_.Busy = true;
    trap_.RunCommand("Edit Data Errors", Icon::Exclamation, [this] { Edit(); });
    state_.Busy = false;
    if (!state_.Ended) reload_.Run(cycle_ran);
}

void Maintenance::Edit() {
    const std::string path = state_.folders.DataPath + CatalogueName;
    state_.StartupStep = "Checking for: " + path;
    if (!FileExists(path)) AppendFile(path, "");
    state_.StartupStep = "Shell Notepad and " + path;
    ShellAndWait("notepad.exe", path);
    state_.StartupStep.clear();
}

void Maintenance::ShellAndWait(const std::string& program, const std::string& file) {
    constexpr std::chrono::milliseconds Slice{250};
    const auto started = shell_.Start(program, file);
    while (!started->HasEnded())
        if (!clock_.ServeEvents(Slice)) return;
}

} // namespace quillon
