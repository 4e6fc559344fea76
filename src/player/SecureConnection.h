#pragma once

#include "player/PlayerSystem.h"

#include <optional>
#include <vector>

namespace quillon {

/// The cryptography of a secure connection, without its traffic. `received` holds what the server sent; a call
/// removes what it used from the front.
class SecurityLayer {
  public:
    enum class Progress {
        Done,       ///< connection established; record decrypted
        Step,       ///< of a handshake
        Incomplete, ///< `received` ends within a message
        Handshake,  ///< the server wants another one
        Closed,     ///< by the server
        Failed,
        Untrusted, ///< the server's certificate is not valid for the host
    };

    virtual ~SecurityLayer() = default;

    /// Why the server is untrusted, after Progress::Untrusted.
    virtual SilenceCause Fault() const = 0;

    /// Takes one step of the handshake, the first one without input, and appends what is to be sent.
    virtual Progress ShakeHands(std::vector<std::uint8_t>& received, std::string& unsent) = 0;

    /// Decrypts one record and appends its data, which may be empty.
    virtual Progress Decrypt(std::vector<std::uint8_t>& received, std::vector<std::uint8_t>& data) = 0;

    /// Encrypts a front part of `bytes`, appends it as a record and returns the part's length. 0 if that
    /// failed.
    virtual std::size_t Encrypt(std::string_view bytes, std::string& unsent) = 0;
};

/// A connection whose traffic is encrypted. A call does no more than one step or one record; when that brings
/// no data yet, it returns IoStatus::Ok with a count of 0. IoStatus::Refused if the server is not trusted;
/// nothing but the handshake is sent then.
class SecureConnection : public Connection {
  public:
    /// This many steps or records in a row without data make the connection fail: a server could go on for
    /// ever.
    static constexpr int MostStepsWithoutData = 32;

    SecureConnection(std::unique_ptr<Connection> carrier, std::unique_ptr<SecurityLayer> layer);

    IoResult Read(std::span<std::uint8_t> room) override;
    IoResult Write(std::string_view bytes) override;
    bool IsPrivate() const override { return carrier_->IsPrivate(); }
    SilenceReason Problem() const override;

  private:
    IoStatus ShakeHands();
    IoStatus ReadRecord();
    IoStatus Receive();
    IoStatus Flush();
    IoStatus Fail(IoStatus status);

    const std::unique_ptr<Connection> carrier_;
    const std::unique_ptr<SecurityLayer> layer_;
    std::optional<IoStatus> ended_; // for good: failed, refused or at its end
    bool is_established_ = false;
    bool needs_input_ = false; // for the next step
    int steps_without_data_ = 0;
    std::vector<std::uint8_t> received_; // still encrypted
    std::vector<std::uint8_t> data_;     // decrypted, for Read
    std::string unsent_;                 // encrypted, to be sent
};

} // namespace quillon
