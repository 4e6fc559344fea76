#pragma once

#include "ports/RegionalSettings.h"

#include <string>

namespace quillon {

/// Sets the user's number separators to "." and "," for as long as the program runs.
class RegionalNumbers {
  public:
    explicit RegionalNumbers(RegionalSettings& settings) : settings_(settings) {}

    void ReadAndReplace();

    /// Puts the user's own separators back; does nothing when they were not changed or are back already.
    void Restore();

  private:
    RegionalSettings& settings_;
    bool DecimalChanged = false;
    bool ThousandChanged = false;
    std::string SavedDecimal;
    std::string SavedThousand;
};

} // namespace quillon
