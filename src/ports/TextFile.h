#pragma once

#include "ports/AnsiCodePage.h"
#include "runtime/FileSystem.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

// Text files of the data folder. They are UTF-8 or, when their bytes are not well-formed UTF-8, in the system's
// ANSI code page. File failures are the errors of ReadFile and ReplaceFile.

/// The bytes without a leading byte-order mark.
std::string_view SkipByteOrderMark(std::string_view bytes);

/// The file's whole text.
std::string ReadText(std::string_view path, AnsiCodePage& page);

/// A file's whole text, and the file as it was when that was read.
struct TextVersion {
    std::optional<FileStamp> Stamp;
    std::shared_ptr<const std::string> Text;
};
TextVersion ReadVersion(std::string_view path, AnsiCodePage& page);

/// Takes the next line off the front of `text` and returns it without its end, which is CR LF, LF or the end of
/// the text. Empty if `text` is.
std::optional<std::string_view> TakeLine(std::string_view& text);

/// Appends lines, each ended by CR LF, to a file, which is created if missing. The file keeps its encoding
/// unless its code page lacks one of the new characters: the whole file then becomes UTF-8. An unterminated
/// last line is ended first. Either all lines are added or the file stays as it was. Changes that another
/// program makes meanwhile are kept.
void AppendLines(std::string_view path, const std::vector<std::string>& lines, AnsiCodePage& page);

} // namespace quillon
