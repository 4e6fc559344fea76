#pragma once

#include <string>
#include <string_view>

namespace quillon {

/// Convert between the program's UTF-8 and Windows' UTF-16. Malformed parts become replacement characters.
std::wstring Wide(std::string_view text);
std::string Narrow(std::wstring_view text);

} // namespace quillon
