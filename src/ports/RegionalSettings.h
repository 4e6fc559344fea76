#pragma once

#include <string>

namespace quillon {

/// The user's own number settings, system-wide: what is written here other programs see too.
class RegionalSettings {
  public:
    enum class Separator { Decimal, Thousand };

    virtual ~RegionalSettings() = default;

    /// Empty when it cannot be read.
    virtual std::string Read(Separator separator) = 0;
    virtual void Write(Separator separator, const std::string& text) = 0;
};

} // namespace quillon
