#include "win32/sound/StreamPlayer.h"

#include "player/Session.h"
#include "win32/sound/SessionThreads.h"
#include "win32/sound/WinPlayerSystem.h"

namespace quillon {

StreamPlayer::StreamPlayer(const std::string& program_version, const std::shared_ptr<ChosenDevice>& device)
    : StreamPlayer(program_version, device, std::make_shared<SessionThreads>()) {}

StreamPlayer::StreamPlayer(const std::string& program_version, const std::shared_ptr<ChosenDevice>& device,
                           std::shared_ptr<SessionThreads> threads)
    : SessionPlayer(
          program_version, [device] { return std::make_unique<WinPlayerSystem>(device); },
          [threads](std::shared_ptr<Session> session) { threads->Run(std::move(session)); }),
      threads_(std::move(threads)) {
    threads_->Open();
}

StreamPlayer::~StreamPlayer() {
    Stop();
    threads_->Close();
}

} // namespace quillon
