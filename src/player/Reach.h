#pragma once

#include <cstdint>
#include <span>

namespace quillon {

/// Which servers may be asked.
enum class Reach {
    Everywhere,
    Public, ///< none on this machine or in private networks
};

/// What servers have led to an address by redirects and playlists. Nothing has to the catalogue's own addresses
/// and to the entries of local playlists.
struct Origin {
    Reach reach = Reach::Everywhere; ///< Public once a public server has led there
    bool encrypted = false;          ///< a server with https was among them
};

/// Whether an IP address of 4 or 16 bytes, in network order, is of this machine, a private network or a link.
bool IsPrivateAddress(std::span<const std::uint8_t> address);

} // namespace quillon
