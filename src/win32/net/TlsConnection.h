#pragma once

#include "player/PlayerSystem.h"
#include "win32/net/SecurityFunctions.h"

#include <optional>
#include <vector>

namespace quillon {

/// A connection encrypted by Windows' security package. IoStatus::Refused if Windows does not trust the
/// server's certificate for the host; nothing is sent then.
class TlsConnection : public Connection {
  public:
    /// `host` is a name, or a literal address without brackets.
    TlsConnection(std::unique_ptr<Connection> carrier, const std::string& host);
    ~TlsConnection() override;

    TlsConnection(const TlsConnection&) = delete;
    TlsConnection& operator=(const TlsConnection&) = delete;

    IoResult Read(std::span<std::uint8_t> room) override;
    IoResult Write(std::string_view bytes) override;

  private:
    bool AcquireCredentials();
    IoStatus Handshake();
    IoStatus HandshakeStep();
    IoStatus CheckServer();
    IoStatus Receive();
    IoStatus Flush();
    IoStatus Decrypt();
    bool Encrypt(std::string_view bytes);
    void KeepLast(std::size_t count);

    const std::unique_ptr<Connection> carrier_;
    const SecurityFunctionTableW* const functions_ = SecurityFunctions();
    std::wstring host_;
    CredHandle credentials_;
    CtxtHandle context_;
    SecPkgContext_StreamSizes sizes_{};
    bool is_established_ = false;
    std::optional<IoStatus> failure_; // permanent
    bool has_ended_ = false;
    bool needs_input_ = false;           // for the next step of the handshake
    std::vector<std::uint8_t> received_; // still encrypted
    std::vector<std::uint8_t> plain_;    // decrypted, for Read
    std::string unsent_;                 // encrypted, to be sent
};

} // namespace quillon
