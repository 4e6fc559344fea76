#pragma once

#include <string>
#include <string_view>

namespace quillon {

/// Between the program's UTF-8 and Windows' UTF-16. What is not well-formed becomes a replacement character.
std::wstring Wide(std::string_view text);
std::string Narrow(std::wstring_view text);

} // namespace quillon
