#pragma once

#include "player/PlayerSystem.h"
#include "win32/net/SecurityFunctions.h"

#include <optional>
#include <vector>

namespace quillon {

/// A connection that Windows' security package encrypts, to a server whose certificate Windows trusts for the
/// host asked for. Nothing is sent to any other, which is Supply::Refused.
class TlsConnection : public Connection {
  public:
    /// `host` is a name, or a literal address without brackets.
    TlsConnection(std::unique_ptr<Connection> carrier, const std::string& host);
    ~TlsConnection() override;

    TlsConnection(const TlsConnection&) = delete;
    TlsConnection& operator=(const TlsConnection&) = delete;

    Got Read(std::span<std::uint8_t> room) override;
    Got Write(std::string_view bytes) override;

  private:
    bool HaveCredentials();
    Supply Secured();
    Supply ShakeHands();
    Supply AcceptServer();
    Supply Receive();
    Supply Flush();
    Supply Decrypt();
    bool Encrypt(std::string_view bytes);
    void KeepLast(std::size_t count);

    const std::unique_ptr<Connection> carrier_;
    const SecurityFunctionTableW* const functions_ = SecurityFunctions();
    std::wstring host_;
    CredHandle credentials_;
    CtxtHandle context_;
    SecPkgContext_StreamSizes sizes_{};
    bool is_secured_ = false;
    std::optional<Supply> failure_; // for good
    bool has_ended_ = false;
    bool needs_input_ = false;           // before the next step of the handshake
    std::vector<std::uint8_t> received_; // not decrypted yet
    std::vector<std::uint8_t> plain_;    // not read yet
    std::string unsent_;                 // encrypted
};

} // namespace quillon
