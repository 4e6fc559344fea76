#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

using Entries = std::vector<std::string>;

/// Longer input, in bytes, is not treated as a playlist.
constexpr std::size_t LongestPlaylist = 262144;

// The entries of a playlist in each format, in order and verbatim. Line ends may be of any kind; anything else
// than entries is skipped. UTF-8 text.

/// Every line that is not a comment.
Entries M3uEntries(std::string_view text);

/// "File1=address", ordered by number, which need not start at 1.
Entries PlsEntries(std::string_view text);

/// <ref href="address"/> and <entryref href="address"/>.
Entries AsxEntries(std::string_view text);

/// <media src="address"/>.
Entries WplEntries(std::string_view text);

/// <location>address</location> of the tracks.
Entries XspfEntries(std::string_view text);

/// The entries of a playlist, whose format is detected by its content or else by its name. Bytes that are not
/// UTF-8 are read as Latin-1.
Entries ReadPlaylist(std::string_view bytes, std::string_view name);

/// Resolves an entry of the playlist `from`; both `from` and the result are addresses or paths. Returns nothing
/// if it cannot be played. A playlist from the network never leads to a local file.
std::optional<std::string> ResolveEntry(std::string_view from, std::string_view entry);

} // namespace quillon
