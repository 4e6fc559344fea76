#include "win32/StreamPlayer.h"

#include "player/Session.h"
#include "win32/SessionThreads.h"
#include "win32/WinPlayerSystem.h"

namespace quillon {

StreamPlayer::StreamPlayer(std::string program_version)
    : StreamPlayer(std::move(program_version), std::make_shared<SessionThreads>()) {}

StreamPlayer::StreamPlayer(std::string program_version, std::shared_ptr<SessionThreads> threads)
    : SessionPlayer(
          std::move(program_version), [] { return std::make_unique<WinPlayerSystem>(); },
          [threads](std::shared_ptr<Session> session) { threads->Run(std::move(session)); }),
      threads_(std::move(threads)) {}

StreamPlayer::~StreamPlayer() {
    Stop();
    threads_->Close();
}

} // namespace quillon
