#include "simlink/LinkTexts.h"

namespace quillon {

const std::array<const char*, 16> ResultTexts = {
    "Connected",
    "Attempt to Open when already Open",
    "Can't link to FSUIPC",
    "Failed to Register common message with Windows",
    "Failed to create Atom for mapping filename",
    "Failed to create a file mapping object",
    "Failed to open a view to the file map",
    "Incorrect version of FSUIPC, or not FSUIPC",
    "Sim is not version requested",
    "Call cannot execute, link not Open",
    "Call cannot execute: no requests accumulated",
    "IPC timed out all retries",
    "IPC sendmessage failed all retries",
    "IPC request contains bad data",
    "Maybe running on WideClient, but FS not running on Server, or wrong FSUIPC",
    "Read or Write request cannot be added, memory for Process is full",
};

const std::array<const char*, 9> SimNames = {
    "No Connection to Flight Simulator",
    "Flight Simulator 98",
    "Flight Simulator 2000",
    "Combat Flight Simulator 2",
    "Combat Flight Simulator 1",
    "FLY",
    "Flight Simulator 2002",
    "FS9",
    "FSX",
};

namespace {

constexpr std::array<const char*, 6> LaterSimNames = {
    "ESP",
    "Prepar3D",
    "FSX 64-bit",
    "Prepar3D 64-bit",
    "Microsoft Flight Simulator",
    "Microsoft Flight Simulator 2024",
};

} // namespace

std::string SimName(std::uint32_t code) {
    if (code < SimNames.size()) return SimNames[code];
    const std::size_t later = code - SimNames.size();
    if (later < LaterSimNames.size()) return LaterSimNames[later];
    return "Simulator " + std::to_string(code);
}

std::string ShownSimName(std::uint32_t code, std::int32_t version_word) {
    constexpr std::uint32_t Fsx = 8;
    constexpr std::int32_t VersionFive = 5; // FSUIPC's own was never made for FSX
    return code == Fsx && version_word >> 28 == VersionFive ? "X-Plane" : SimName(code);
}

} // namespace quillon
