#include "win32/net/Socket.h"

#include "win32/system/Utf16.h"

#include <algorithm>
#include <climits>
#include <span>

namespace quillon {

using namespace std::chrono_literals;

namespace {

/// The next address is tried after this time without an answer.
constexpr auto AddressTimeout = 3s;

bool StartWinsock() {
    static const bool Started = [] {
        WSADATA data;
        return WSAStartup(MAKEWORD(2, 2), &data) == 0;
    }();
    return Started;
}

/// Of no family that Quillon knows: private, too.
bool IsPrivateAddressOf(const ADDRINFOW& found) {
    const auto bytes = [](const auto& address) {
        return std::span(reinterpret_cast<const std::uint8_t*>(&address), sizeof address);
    };
    if (found.ai_family == AF_INET)
        return IsPrivateAddress(bytes(reinterpret_cast<const sockaddr_in*>(found.ai_addr)->sin_addr));
    return found.ai_family != AF_INET6 ||
           IsPrivateAddress(bytes(reinterpret_cast<const sockaddr_in6*>(found.ai_addr)->sin6_addr));
}

int ClampToInt(std::size_t size) {
    return static_cast<int>(std::min<std::size_t>(size, INT_MAX));
}

} // namespace

std::unique_ptr<Socket> Socket::Open(const std::string& host, std::uint16_t port, Reach reach, HANDLE wake) {
    if (!StartWinsock()) return nullptr;
    ADDRINFOW hints{};
    hints.ai_socktype = SOCK_STREAM;
    ADDRINFOW* addresses = nullptr;
    if (GetAddrInfoW(Wide(host).c_str(), std::to_wstring(port).c_str(), &hints, &addresses) != 0)
        return nullptr;
    return std::make_unique<Socket>(addresses, reach, wake);
}

Socket::Socket(ADDRINFOW* addresses, Reach reach, HANDLE wake)
    : addresses_(addresses), next_(addresses), reach_(reach), wake_(wake) {}

IoStatus Socket::Connected() {
    if (connected_) return IoStatus::Ok;
    if (socket_) {
        WSANETWORKEVENTS events{};
        if (WSAEnumNetworkEvents(socket_.Get(), nullptr, &events) != 0) return IoStatus::Failed;
        const bool answered = (events.lNetworkEvents & FD_CONNECT) != 0;
        connected_ = answered && events.iErrorCode[FD_CONNECT_BIT] == 0;
        if (connected_) return IoStatus::Ok;
        const bool waits_on = !next_ || std::chrono::steady_clock::now() - started_ < AddressTimeout;
        if (!answered && waits_on) return IoStatus::Connecting;
    }
    if (TryNextAddress()) return IoStatus::Connecting;
    return has_tried_ ? IoStatus::Failed : IoStatus::Refused;
}

bool Socket::TryNextAddress() {
    while (next_) {
        const ADDRINFOW& address = *next_;
        next_ = next_->ai_next;
        is_private_ = IsPrivateAddressOf(address);
        if (is_private_ && reach_ == Reach::Public) continue;
        has_tried_ = true;
        if (StartConnecting(address)) return true;
    }
    return false;
}

bool Socket::StartConnecting(const ADDRINFOW& address) {
    started_ = std::chrono::steady_clock::now();
    socket_.Reset(socket(address.ai_family, address.ai_socktype, address.ai_protocol));
    if (!socket_) return false;
    // This also makes the socket non-blocking.
    if (WSAEventSelect(socket_.Get(), wake_, FD_CONNECT | FD_READ | FD_WRITE | FD_CLOSE) != 0) return false;
    return connect(socket_.Get(), address.ai_addr, static_cast<int>(address.ai_addrlen)) == 0 ||
           WSAGetLastError() == WSAEWOULDBLOCK;
}

IoResult Socket::Read(std::span<std::uint8_t> room) {
    if (const IoStatus status = Connected(); status != IoStatus::Ok) return {status};
    const int count = recv(socket_.Get(), reinterpret_cast<char*>(room.data()), ClampToInt(room.size()), 0);
    if (count > 0) return {IoStatus::Ok, static_cast<std::size_t>(count)};
    if (count == 0) return {IoStatus::EndOfStream};
    return {WSAGetLastError() == WSAEWOULDBLOCK ? IoStatus::WouldBlock : IoStatus::Failed};
}

IoResult Socket::Write(std::string_view bytes) {
    if (const IoStatus status = Connected(); status != IoStatus::Ok) return {status};
    const int count = send(socket_.Get(), bytes.data(), ClampToInt(bytes.size()), 0);
    if (count >= 0) return {IoStatus::Ok, static_cast<std::size_t>(count)};
    return {WSAGetLastError() == WSAEWOULDBLOCK ? IoStatus::WouldBlock : IoStatus::Failed};
}

} // namespace quillon
