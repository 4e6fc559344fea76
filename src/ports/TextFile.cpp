#include "ports/TextFile.h"

#include "runtime/Files.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace quillon {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

std::string ReadIfThere(std::string_view path) {
    try {
        return ReadFile(path);
    } catch (const RuntimeError& error) {
        if (error.Number == FileNotFound) return {};
        throw;
    }
}

/// The line end that a text's unterminated last line lacks; empty if it has one.
std::string_view MissingLineEnd(std::string_view text) {
    if (text.empty() || text.back() == '\n') return "";
    return text.back() == '\r' ? "\n" : "\r\n";
}

/// The file's bytes with the text appended.
std::string Extended(std::string bytes, const std::string& text, AnsiCodePage& page) {
    const std::string_view body = SkipByteOrderMark(bytes);
    std::optional<std::string> added = text;
    if (!IsUtf8(body)) {
        added = page.Encode(text);
        if (!added) {
            bytes = page.Decode(body);
            added = text;
        }
    }
    bytes += MissingLineEnd(SkipByteOrderMark(bytes));
    return bytes + *added;
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    return text;
}

} // namespace

std::string_view SkipByteOrderMark(std::string_view bytes) {
    return bytes.substr(bytes.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0);
}

std::string ReadText(std::string_view path, AnsiCodePage& page) {
    std::string bytes = ReadFile(path);
    const std::string_view body = SkipByteOrderMark(bytes);
    if (!IsUtf8(body)) return page.Decode(body);
    bytes.erase(0, bytes.size() - body.size());
    return bytes;
}

TextVersion ReadVersion(std::string_view path, AnsiCodePage& page) {
    const auto stamp = StampOf(path); // before the text: a change in between is then noticed
    return {stamp, std::make_shared<const std::string>(ReadText(path, page))};
}

std::optional<std::string_view> TakeLine(std::string_view& text) {
    if (text.empty()) return std::nullopt;
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

void AppendLines(std::string_view path, const std::vector<std::string>& lines, AnsiCodePage& page) {
    constexpr int MostTries = 10;
    for (int tries = 0; tries < MostTries; ++tries) {
        const std::string before = ReadIfThere(path);
        if (ReplaceFileIf(path, Extended(before, Joined(lines), page),
                          [&] { return ReadIfThere(path) == before; }))
            return;
    }
    Raise(PermissionDenied); // another program keeps writing
}

} // namespace quillon
