#include "app/RegionalNumbers.h"

#include "runtime/Files.h"
#include "runtime/RuntimeError.h"

namespace quillon {

namespace {

using Separator = RegionalSettings::Separator;

constexpr const char* OurDecimal = ".";
constexpr const char* OurThousand = ",";

/// The note of a run that crashed; empty if there is none.
std::string ReadNote(const std::string& path) {
    try {
        return FileExists(path) ? ReadFile(path) : "";
    } catch (const RuntimeError&) {
        return "";
    }
}

} // namespace

bool RegionalNumbers::ReadAndReplace(const std::string& note_path) {
    note_path_ = note_path;
    SavedDecimal = settings_.Read(Separator::Decimal);
    SavedThousand = settings_.Read(Separator::Thousand);
    Recover(ReadNote(note_path_));
    // An unreadable separator is left alone: it could not be restored.
    DecimalChanged = SavedDecimal && SavedDecimal != OurDecimal;
    ThousandChanged = SavedThousand && SavedThousand != OurThousand;
    const bool noted = WriteNote();
    if (!noted) DecimalChanged = ThousandChanged = false;
    if (DecimalChanged) settings_.Write(Separator::Decimal, OurDecimal);
    if (ThousandChanged) settings_.Write(Separator::Thousand, OurThousand);
    return noted;
}

/// A note holds the decimal separator, a line feed and the thousands separator. One that the user has changed
/// since, so that it is no longer ours, is not restored.
void RegionalNumbers::Recover(const std::string& note) {
    const std::size_t end = note.find('\n');
    if (end == std::string::npos) return;
    if (SavedDecimal == OurDecimal) SavedDecimal = note.substr(0, end);
    if (SavedThousand == OurThousand) SavedThousand = note.substr(end + 1);
}

bool RegionalNumbers::WriteNote() const {
    try {
        if (DecimalChanged || ThousandChanged)
            ReplaceFile(note_path_, SavedDecimal.value_or("") + "\n" + SavedThousand.value_or(""));
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

void RegionalNumbers::Restore() {
    const bool changed = DecimalChanged || ThousandChanged;
    if (DecimalChanged) settings_.Write(Separator::Decimal, *SavedDecimal);
    if (ThousandChanged) settings_.Write(Separator::Thousand, *SavedThousand);
    DecimalChanged = ThousandChanged = false;
    try {
        if (changed) DeleteFileAt(note_path_);
    } catch (const RuntimeError&) {
        // A note that stays does no harm: it only counts while our separators are set.
    }
}

} // namespace quillon
