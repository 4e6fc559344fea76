#pragma once

#include "player/PlayerSystem.h"
#include "win32/system/Handle.h"

#include <windows.h>

#include <chrono>
#include <winsock2.h>
#include <ws2tcpip.h>

namespace quillon {

/// A TCP connection. The addresses of a name are tried in turn.
class Socket : public Connection {
  public:
    /// Looks the name up, which may take several seconds. Null if it has no address; addresses beyond
    /// `reach` are left out. `wake` is set whenever the
    /// connection becomes ready.
    static std::unique_ptr<Socket> Open(const std::string& host, std::uint16_t port, Reach reach, HANDLE wake);

    Socket(ADDRINFOW* addresses, Reach reach, HANDLE wake);

    IoResult Read(std::span<std::uint8_t> room) override;
    IoResult Write(std::string_view bytes) override;
    bool IsPrivate() const override { return is_private_; }
    SilenceReason Problem() const override { return {SilenceCause::PrivateAddress, ""}; }

  private:
    IoStatus Connected();
    bool TryNextAddress();
    bool StartConnecting(const ADDRINFOW& address);

    static void CloseSocket(SOCKET socket) { closesocket(socket); }

    Handle<ADDRINFOW*, FreeAddrInfoW> addresses_;
    const ADDRINFOW* next_;
    const Reach reach_;
    HANDLE wake_;
    Handle<SOCKET, CloseSocket, INVALID_SOCKET> socket_;
    std::chrono::steady_clock::time_point started_;
    bool connected_ = false;
    bool has_tried_ = false;  // an address
    bool is_private_ = false; // the one tried last
};

} // namespace quillon
