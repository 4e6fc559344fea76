// The traffic of a secure connection, whatever its server sends.
#include "player/SecureConnection.h"

#include <gtest/gtest.h>
#include <map>

using namespace quillon;

namespace {

/// Sends a byte at a time: a text, then its end over and over.
class Carrier : public Connection {
  public:
    Carrier(std::string text, std::size_t loop, int& reads, std::string& written)
        : text_(std::move(text)), loop_(loop), reads_(reads), written_(written) {}

    IoResult Read(std::span<std::uint8_t> room) override {
        ++reads_;
        room[0] = static_cast<std::uint8_t>(text_[at_]);
        if (++at_ == text_.size()) at_ -= loop_;
        return {IoStatus::Ok, 1};
    }
    IoResult Write(std::string_view bytes) override {
        written_ += bytes;
        return {IoStatus::Ok, bytes.size()};
    }
    bool IsPrivate() const override { return false; }

  private:
    std::string text_;
    std::size_t loop_;
    std::size_t at_ = 0;
    int& reads_;
    std::string& written_;
};

/// Every byte is a record.
class Layer : public SecurityLayer {
  public:
    SilenceCause Fault() const override { return SilenceCause::CertificateExpired; }
    Progress ShakeHands(std::vector<std::uint8_t>& received, std::string& unsent) override {
        if (received.empty()) unsent = "hello";
        return received.empty() ? Progress::Step : Take(received);
    }
    Progress Decrypt(std::vector<std::uint8_t>& received, std::vector<std::uint8_t>& data) override {
        if (received[0] == 'd' || received[0] == 'x') data.push_back('d');
        return Take(received);
    }
    std::size_t Encrypt(std::string_view bytes, std::string&) override { return bytes.size(); }

  private:
    static Progress Take(std::vector<std::uint8_t>& received) {
        static const std::map<std::uint8_t, Progress> other{
            {'s', Progress::Step},   {'h', Progress::Handshake}, {'u', Progress::Untrusted},
            {'c', Progress::Closed}, {'x', Progress::Failed},    {'-', Progress::Incomplete}};
        const auto found = other.find(received[0]);
        if (received[0] != '-') received.clear();
        return found == other.end() ? Progress::Done : found->second;
    }
};

TEST(SecureConnection, EndsHoweverLongItsServerGoesOn) {
    // s: step of a handshake, E: its end or an empty record, d: data, h: asks for a handshake, c: closed,
    // u: untrusted, x: data that turns out to be damaged, -: incomplete. The last bytes are repeated.
    const std::tuple<const char*, std::string, std::size_t, IoStatus, std::size_t> rows[] = {
        {"data, then the end", "ssEdEddhEdc", 1, IoStatus::EndOfStream, 4},
        {"damage", "sEddx", 1, IoStatus::Failed, 2},
        {"empty records", "sEdE", 1, IoStatus::Failed, 1},
        {"as many as allowed", "sE" + std::string(29, 'E') + "d" + std::string(31, 'E') + "dc", 1,
         IoStatus::EndOfStream, 2},
        {"handshakes", "sEdhssE", 4, IoStatus::Failed, 1},
        {"a handshake without end", "s", 1, IoStatus::Failed, 0},
        {"a message without end", "-", 1, IoStatus::Failed, 0},
        {"a stranger", "su", 1, IoStatus::Refused, 0},
    };
    for (const auto& [name, text, loop, last, length] : rows) {
        int reads = 0;
        std::string written;
        SecureConnection connection(std::make_unique<Carrier>(text, loop, reads, written),
                                    std::make_unique<Layer>());
        EXPECT_EQ(connection.Problem().Cause, SilenceCause::CertificateExpired);
        EXPECT_EQ(connection.Write("x").count, 0U) << name << ": nothing goes unencrypted";
        std::array<std::uint8_t, 10> room{};
        std::string data;
        IoResult result{IoStatus::Ok};
        while (result.status == IoStatus::Ok) {
            const int before = reads;
            result = connection.Read(room);
            EXPECT_LE(reads, before + 1) << name << ": a call is short";
            if (result.count > 0) {
                EXPECT_EQ(connection.Write("x").count, 1U) << name;
            }
            for (std::size_t at = 0; at < result.count; ++at) data += static_cast<char>(room[at]);
        }
        EXPECT_EQ(result.status, last) << name;
        EXPECT_EQ(written, "hello") << name;
        EXPECT_EQ(data, std::string(length, 'd')) << name;
        EXPECT_EQ(connection.Read(room).status, last) << name << ", for good";
        EXPECT_EQ(connection.Write("x").status, last) << name << ", for good";
    }
}

} // namespace
