#pragma once

#include "ports/MessageLink.h"

namespace quillon {

/// Sends window messages.
class WinMessageLink : public MessageLink {
  public:
    NativeHandle FindPeerWindow(const std::string& window_class) override;
    std::uint32_t RegisterMessage(const std::string& name) override;
    Sent Send(NativeHandle window, std::uint32_t message, std::uint32_t wparam,
              std::uint32_t timeout_ms) override;
    std::uint32_t ProcessId() override;
};

/// File mappings backed by the page file, and global atoms for their names.
class WinSharedMemory : public SharedMemory {
  public:
    std::uint32_t AddNameAtom(const std::string& name) override;
    void DeleteAtom(std::uint32_t atom) override;
    Mapping CreateMapping(const std::string& name, std::size_t size) override;
    void CloseMapping(NativeHandle mapping) override;
    std::uint8_t* MapView(NativeHandle mapping) override;
    void UnmapView(std::uint8_t* view) override;
};

} // namespace quillon
