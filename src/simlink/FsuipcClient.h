#pragma once

#include "ports/Clock.h"
#include "ports/MessageLink.h"
#include "simlink/LinkTexts.h"
#include "simlink/RequestArea.h"

#include <atomic>
#include <cstdint>

namespace quillon {

/// What an open link holds; all zero while it is closed.
struct LinkState {
    NativeHandle FsuipcWindow = 0;
    std::uint32_t FsuipcMessage = 0;
    std::uint32_t FsuipcAtom = 0;
    NativeHandle FsuipcMapping = 0;
    std::uint8_t* FsuipcView = nullptr;
    std::int32_t FsuipcVersion = 0;
    std::uint32_t SimVersion = 0;
    std::uint32_t FsuipcLibWord = 0; ///< overlaps the upper half of SimVersion as sent; not used
};

/// The link to the FSUIPC module inside the simulator, which exposes the simulator's state as numbered offsets.
/// Reads and writes are queued and then sent in one round trip. Calls return true on success and set `result`
/// to a LinkResult, the reason if they fail. They block, so they are made beside the window's thread; only what
/// says so may be called on another one meanwhile.
class FsuipcClient {
  public:
    FsuipcClient(MessageLink& messages, SharedMemory& memory, Clock& clock)
        : messages_(messages), memory_(memory), clock_(clock) {}
    ~FsuipcClient() { FsuipcClose(); }
    FsuipcClient(const FsuipcClient&) = delete;
    FsuipcClient& operator=(const FsuipcClient&) = delete;

    /// Starts a series of questions. Those that come more than 30 seconds later count as timed out, unsent.
    void BeginQuestions() { begun_ = clock_.Uptime(); }

    /// How long ago that was.
    std::chrono::milliseconds SinceBegin() const { return clock_.Uptime() - begun_; }

    /// Makes the attempt under way the last one: the program is ending. Called on any thread.
    void Cancel() { cancelled_ = true; }

    /// For how long the simulator has been owing an answer, 0 if it owes none. Called on any thread.
    std::chrono::milliseconds Unanswered() const;

    /// Closes a link that is still open, ready for the next open. Keeps the shared area.
    void FsuipcReset();

    /// Opens the link to the simulator with that code, 0 for any. Takes at least a tenth of a second. Fails
    /// with LinkAlreadyOpen if the link is open, which only clears the two versions; any other failure leaves
    /// the link closed.
    bool FsuipcOpen(std::uint32_t requested, std::uint32_t& result);

    /// Re-opens the link to whatever simulator there is, and starts a series of questions.
    bool FsuipcReopen(std::uint32_t& result) {
        BeginQuestions();
        FsuipcReset();
        return FsuipcOpen(0, result);
    }

    /// Queues a read. FsuipcProcess fills `destination`, which must stay valid until then.
    bool FsuipcRead(std::uint32_t offset, std::uint32_t size, void* destination, std::uint32_t& result);

    /// Queues a write. The bytes are copied at once.
    bool FsuipcWrite(std::uint32_t offset, std::uint32_t size, const void* source, std::uint32_t& result);

    /// Sends the queue, copies the replies to their destinations and empties the queue, even if it fails. A
    /// reply that does not match the queue fails without changing `result`; destinations before the bad record
    /// are filled. Waits at most 23 seconds for a hung simulator.
    bool FsuipcProcess(std::uint32_t& result);

    /// Releases everything. No effect on a closed link.
    void FsuipcClose();

    bool IsOpen() const { return link_.FsuipcView != nullptr; }

    /// FSUIPC's version as four binary-coded digits in the high half, 0 while the link is closed.
    std::int32_t FsuipcVersion() const { return link_.FsuipcVersion; }

    /// The simulator's code (see SimName), 0 while the link is closed.
    std::uint32_t SimVersion() const { return link_.SimVersion; }

    /// System error of the last message that could not be sent, 0 if the last one was.
    std::uint32_t LastSystemError() const { return last_error_; }

  private:
    static constexpr std::chrono::milliseconds::rep OwesNothing = -1;

    /// The memory that the simulator sees, and the atom that names it. Kept until FsuipcClose: a server may
    /// hold on to both, and would answer in the old memory if a new one were made under the same name.
    struct SharedArea {
        std::uint32_t atom = 0;
        NativeHandle mapping = 0;
        std::uint8_t* view = nullptr;
    };

    bool FindPeer(std::uint32_t& result);
    bool ShareArea(std::uint32_t& result);
    bool MakeArea(std::uint32_t& result);
    void ReleaseArea();
    bool AskVersions(std::uint32_t& result);
    bool CheckVersions(std::uint32_t requested, std::uint32_t& result);
    bool SendRound(std::uint32_t& reply, std::uint32_t& result);
    MessageLink::Sent SendOnce();

    MessageLink& messages_;
    SharedMemory& memory_;
    Clock& clock_;

    SharedArea shared_;
    LinkState link_;
    bool wide_client_ = false; ///< found under the class that the network client uses
    RequestArea area_;
    std::uint32_t last_error_ = 0;
    std::chrono::milliseconds begun_{0};
    std::atomic<bool> cancelled_ = false;
    std::atomic<std::chrono::milliseconds::rep> owing_since_ = OwesNothing; ///< of the clock's Uptime
};

} // namespace quillon
