#pragma once

#include "ports/AnsiCodePage.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

// Text files of the data folder. They are UTF-8 or, when their bytes are not well-formed UTF-8, in the system's
// ANSI code page. File failures are the errors of ReadFile and ReplaceFile.

/// The bytes without a byte-order mark at their front.
std::string_view SkipByteOrderMark(std::string_view bytes);

/// The file's whole text.
std::string ReadText(std::string_view path, AnsiCodePage& page);

/// Takes the next line off the front of `text`: without its line end, which is CR LF or LF or the text's end.
/// Nothing when `text` is empty.
std::optional<std::string_view> TakeLine(std::string_view& text);

/// Adds lines, each ended by CR LF, at the end of a file, which is created if it is missing. The file keeps its
/// encoding unless its code page lacks one of the new characters: it then becomes UTF-8 as a whole. An open
/// last line is ended first. Either all lines are added, or the file stays as it was. What another program
/// writes into the file meanwhile is kept.
void AppendLines(std::string_view path, const std::vector<std::string>& lines, AnsiCodePage& page);

} // namespace quillon
