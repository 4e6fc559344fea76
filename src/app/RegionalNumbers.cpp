#include "app/RegionalNumbers.h"

namespace quillon {

using Separator = RegionalSettings::Separator;

void RegionalNumbers::ReadAndReplace() {
    SavedDecimal = settings_.Read(Separator::Decimal);
    SavedThousand = settings_.Read(Separator::Thousand);
    // An unreadable separator is left alone: it could not be put back.
    DecimalChanged = !SavedDecimal.empty() && SavedDecimal != ".";
    ThousandChanged = !SavedThousand.empty() && SavedThousand != ",";
    if (DecimalChanged) settings_.Write(Separator::Decimal, ".");
    if (ThousandChanged) settings_.Write(Separator::Thousand, ",");
}

void RegionalNumbers::Restore() {
    if (DecimalChanged) settings_.Write(Separator::Decimal, SavedDecimal);
    if (ThousandChanged) settings_.Write(Separator::Thousand, SavedThousand);
    DecimalChanged = ThousandChanged = false;
}

} // namespace quillon
