#pragma once

#include "ports/RegionalSettings.h"

#include <string>

namespace quillon {

/// Sets the user's number separators to "." and "," for as long as the program runs. A note of the user's own
/// lies on the disk meanwhile: after a crash the next run takes them from there.
class RegionalNumbers {
  public:
    explicit RegionalNumbers(RegionalSettings& settings) : settings_(settings) {}

    /// `note_path` is where the note belongs. Where none can be written the separators are left alone.
    void ReadAndReplace(const std::string& note_path);

    /// Puts the user's own separators back; does nothing when they were not changed or are back already.
    void Restore();

  private:
    void Recover(const std::string& note);
    bool WriteNote() const;

    RegionalSettings& settings_;
    std::string note_path_;
    bool DecimalChanged = false;
    bool ThousandChanged = false;
    std::string SavedDecimal;
    std::string SavedThousand;
};

} // namespace quillon
