#pragma once

#include "player/PlayerSystem.h"
#include "win32/system/Handle.h"

#include <windows.h>

#include <chrono>
#include <winsock2.h>
#include <ws2tcpip.h>

namespace quillon {

/// A TCP connection. The addresses of a name are tried one after the other.
class Socket : public Connection {
  public:
    /// Looks the name up, which may take long, and starts connecting. Null when it has no address. `wake` is
    /// set whenever the connection has something new.
    static std::unique_ptr<Socket> Open(const std::string& host, std::uint16_t port, HANDLE wake);

    Socket(ADDRINFOW* addresses, HANDLE wake);

    Got Read(std::span<std::uint8_t> room) override;
    Got Write(std::string_view bytes) override;

  private:
    Supply Connected();
    bool TryNextAddress();
    bool StartConnecting(const ADDRINFOW& address);

    static void CloseSocket(SOCKET socket) { closesocket(socket); }

    Handle<ADDRINFOW*, FreeAddrInfoW> addresses_;
    const ADDRINFOW* next_;
    HANDLE wake_;
    Handle<SOCKET, CloseSocket, INVALID_SOCKET> socket_;
    std::chrono::steady_clock::time_point started_;
    bool connected_ = false;
};

} // namespace quillon
