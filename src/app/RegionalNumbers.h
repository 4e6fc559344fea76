#pragma once

#include "ports/RegionalSettings.h"

#include <optional>
#include <string>

namespace quillon {

/// Sets the user's number separators to "." and "," while the program runs. The user's own are kept in a note
/// on disk meanwhile, from which the next run restores them after a crash.
class RegionalNumbers {
  public:
    explicit RegionalNumbers(RegionalSettings& settings) : settings_(settings) {}

    /// `note_path` is the note's file. If it cannot be written, the separators are left alone and false is
    /// returned.
    bool ReadAndReplace(const std::string& note_path);

    /// Restores the user's own separators; does nothing if they were not changed or are restored already.
    void Restore();

  private:
    void Recover(const std::string& note);
    bool WriteNote() const;

    RegionalSettings& settings_;
    std::string note_path_;
    bool DecimalChanged = false;
    bool ThousandChanged = false;
    std::optional<std::string> SavedDecimal; ///< nothing: it could not be read
    std::optional<std::string> SavedThousand;
};

} // namespace quillon
