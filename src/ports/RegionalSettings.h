#pragma once

#include <string>

namespace quillon {

/// The user's own number settings. They are system-wide: other programs see what is written here.
class RegionalSettings {
  public:
    enum class Separator { Decimal, Thousand };

    virtual ~RegionalSettings() = default;

    /// Empty if it cannot be read.
    virtual std::string Read(Separator separator) = 0;
    virtual void Write(Separator separator, const std::string& text) = 0;
};

} // namespace quillon
