#include "win32/net/TlsConnection.h"

#include "win32/net/ServerCertificate.h"
#include "win32/system/Utf16.h"

#include <algorithm>
#include <array>
#include <schannel.h>

namespace quillon {

namespace {

constexpr DWORD Wanted = ISC_REQ_SEQUENCE_DETECT | ISC_REQ_REPLAY_DETECT | ISC_REQ_CONFIDENTIALITY |
                         ISC_REQ_STREAM | ISC_REQ_ALLOCATE_MEMORY | ISC_REQ_USE_SUPPLIED_CREDS |
                         ISC_REQ_MANUAL_CRED_VALIDATION;

/// More than any message of the protocol, in bytes.
constexpr std::size_t LargestBacklog = 262144;

SecBuffer Buffer(unsigned long type, void* bytes = nullptr, std::size_t count = 0) {
    return {static_cast<unsigned long>(count), type, bytes};
}

template <std::size_t N>
SecBufferDesc Description(std::array<SecBuffer, N>& buffers) {
    return {SECBUFFER_VERSION, static_cast<unsigned long>(N), buffers.data()};
}

/// Number of bytes at the end of the input that were not used.
template <std::size_t N>
std::size_t Unused(const std::array<SecBuffer, N>& buffers) {
    for (const SecBuffer& buffer : buffers)
        if (buffer.BufferType == SECBUFFER_EXTRA) return buffer.cbBuffer;
    return 0;
}

} // namespace

TlsConnection::TlsConnection(std::unique_ptr<Connection> carrier, const std::string& host)
    : carrier_(std::move(carrier)), host_(Wide(host)) {
    SecInvalidateHandle(&credentials_);
    SecInvalidateHandle(&context_);
    if (!AcquireCredentials()) failure_ = IoStatus::Failed;
}

TlsConnection::~TlsConnection() {
    if (SecIsValidHandle(&context_)) functions_->DeleteSecurityContext(&context_);
    if (SecIsValidHandle(&credentials_)) functions_->FreeCredentialsHandle(&credentials_);
}

bool TlsConnection::AcquireCredentials() {
    SCHANNEL_CRED wanted{};
    wanted.dwVersion = SCHANNEL_CRED_VERSION;
    wanted.dwFlags = SCH_CRED_MANUAL_CRED_VALIDATION | SCH_CRED_NO_DEFAULT_CREDS | SCH_USE_STRONG_CRYPTO;
    wchar_t package[] = UNISP_NAME_W;
    return functions_ != nullptr &&
           functions_->AcquireCredentialsHandleW(nullptr, package, SECPKG_CRED_OUTBOUND, nullptr, &wanted,
                                                 nullptr, nullptr, &credentials_, nullptr) == SEC_E_OK;
}

/// Continues the handshake; IoStatus::Ok once the connection is established and the server trusted.
IoStatus TlsConnection::Handshake() {
    while (!is_established_ && !failure_) {
        IoStatus status = Flush();
        if (status == IoStatus::Ok && needs_input_) status = Receive();
        if (status == IoStatus::WouldBlock || status == IoStatus::Connecting) return IoStatus::Connecting;
        if (status == IoStatus::Ok) status = HandshakeStep();
        if (status != IoStatus::Ok) failure_ = status == IoStatus::Refused ? status : IoStatus::Failed;
    }
    return failure_.value_or(IoStatus::Ok);
}

/// One step; IoStatus::Ok if another can follow.
IoStatus TlsConnection::HandshakeStep() {
    const bool is_first = !SecIsValidHandle(&context_);
    std::array input{Buffer(SECBUFFER_TOKEN, received_.data(), received_.size()), Buffer(SECBUFFER_EMPTY)};
    std::array output{Buffer(SECBUFFER_TOKEN)};
    SecBufferDesc in = Description(input);
    SecBufferDesc out = Description(output);
    DWORD given = 0;
    const SECURITY_STATUS status = functions_->InitializeSecurityContextW(
        &credentials_, is_first ? nullptr : &context_, host_.data(), Wanted, 0, 0, is_first ? nullptr : &in, 0,
        &context_, &out, &given, nullptr);
    if (output[0].pvBuffer != nullptr) {
        unsent_.append(static_cast<const char*>(output[0].pvBuffer), output[0].cbBuffer);
        functions_->FreeContextBuffer(output[0].pvBuffer);
    }
    needs_input_ = true;
    if (status == SEC_E_INCOMPLETE_MESSAGE) return IoStatus::Ok;
    KeepLast(Unused(input));
    needs_input_ = received_.empty();
    if (status == SEC_E_OK) return CheckServer();
    return status == SEC_I_CONTINUE_NEEDED ? IoStatus::Ok : IoStatus::Failed;
}

/// Refused for good: a retry would meet the same certificate.
IoStatus TlsConnection::CheckServer() {
    if (!IsServerTrusted(context_, host_)) return IoStatus::Refused;
    is_established_ =
        functions_->QueryContextAttributesW(&context_, SECPKG_ATTR_STREAM_SIZES, &sizes_) == SEC_E_OK;
    return is_established_ ? IoStatus::Ok : IoStatus::Failed;
}

void TlsConnection::KeepLast(std::size_t count) {
    received_.erase(received_.begin(),
                    received_.end() - static_cast<std::ptrdiff_t>(std::min(count, received_.size())));
}

IoStatus TlsConnection::Receive() {
    std::array<std::uint8_t, 16384> bytes;
    if (received_.size() > LargestBacklog) return IoStatus::Failed;
    const IoResult result = carrier_->Read(bytes);
    if (result.status == IoStatus::Ok)
        received_.insert(received_.end(), bytes.begin(),
                         bytes.begin() + static_cast<std::ptrdiff_t>(result.count));
    return result.status;
}

IoStatus TlsConnection::Flush() {
    while (!unsent_.empty()) {
        const IoResult sent = carrier_->Write(unsent_);
        if (sent.status != IoStatus::Ok) return sent.status;
        unsent_.erase(0, sent.count);
    }
    return IoStatus::Ok;
}

IoResult TlsConnection::Read(std::span<std::uint8_t> room) {
    while (plain_.empty()) {
        if (const IoStatus status = Handshake(); status != IoStatus::Ok) return {status};
        if (has_ended_) return {IoStatus::EndOfStream};
        Flush(); // Receive reports a failure
        IoStatus status = Decrypt();
        if (status == IoStatus::WouldBlock) status = Receive();
        if (status != IoStatus::Ok) return {status};
    }
    const std::size_t count = std::min(room.size(), plain_.size());
    std::copy_n(plain_.begin(), count, room.begin());
    plain_.erase(plain_.begin(), plain_.begin() + static_cast<std::ptrdiff_t>(count));
    return {IoStatus::Ok, count};
}

/// Decrypts the next message; IoStatus::WouldBlock if it has not arrived completely.
IoStatus TlsConnection::Decrypt() {
    if (received_.empty()) return IoStatus::WouldBlock;
    std::array buffers{Buffer(SECBUFFER_DATA, received_.data(), received_.size()), Buffer(SECBUFFER_EMPTY),
                       Buffer(SECBUFFER_EMPTY), Buffer(SECBUFFER_EMPTY)};
    SecBufferDesc message = Description(buffers);
    const SECURITY_STATUS status = functions_->DecryptMessage(&context_, &message, 0, nullptr);
    if (status == SEC_E_INCOMPLETE_MESSAGE) return IoStatus::WouldBlock;
    if (status != SEC_E_OK && status != SEC_I_CONTEXT_EXPIRED && status != SEC_I_RENEGOTIATE)
        return IoStatus::Failed;
    for (const SecBuffer& buffer : buffers) {
        const auto* const bytes = static_cast<const std::uint8_t*>(buffer.pvBuffer);
        if (buffer.BufferType == SECBUFFER_DATA && bytes != nullptr)
            plain_.insert(plain_.end(), bytes, bytes + buffer.cbBuffer);
    }
    KeepLast(Unused(buffers));
    has_ended_ = status == SEC_I_CONTEXT_EXPIRED;
    if (status == SEC_I_RENEGOTIATE) {
        is_established_ = false;
        needs_input_ = received_.empty();
    }
    return IoStatus::Ok;
}

IoResult TlsConnection::Write(std::string_view bytes) {
    if (const IoStatus status = Handshake(); status != IoStatus::Ok) return {status};
    if (const IoStatus status = Flush(); status != IoStatus::Ok) return {status};
    bytes = bytes.substr(0, sizes_.cbMaximumMessage);
    if (!Encrypt(bytes)) return {IoStatus::Failed};
    Flush();
    return {IoStatus::Ok, bytes.size()};
}

bool TlsConnection::Encrypt(std::string_view bytes) {
    std::string message(sizes_.cbHeader, '\0');
    message.append(bytes).append(sizes_.cbTrailer, '\0');
    char* const header = message.data();
    char* const data = header + sizes_.cbHeader;
    std::array buffers{
        Buffer(SECBUFFER_STREAM_HEADER, header, sizes_.cbHeader), Buffer(SECBUFFER_DATA, data, bytes.size()),
        Buffer(SECBUFFER_STREAM_TRAILER, data + bytes.size(), sizes_.cbTrailer), Buffer(SECBUFFER_EMPTY)};
    SecBufferDesc description = Description(buffers);
    if (functions_->EncryptMessage(&context_, 0, &description, 0) != SEC_E_OK) return false;
    unsent_.append(header, buffers[0].cbBuffer + buffers[1].cbBuffer + buffers[2].cbBuffer);
    return true;
}

} // namespace quillon
