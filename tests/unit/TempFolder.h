#pragma once

#include "runtime/Files.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace quillon {

/// One of our paths as the standard library's, and the other way round.
inline std::filesystem::path PathOf(std::string_view text) {
    std::u8string path(text.begin(), text.end());
#ifndef _WIN32
    std::replace(path.begin(), path.end(), u8'\\', u8'/');
#endif
    return {path};
}
inline std::string TextOf(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

/// A test with an empty folder of its own, whose name is not ASCII. It is removed afterwards.
class TempFolder : public testing::Test {
  public:
    TempFolder() { std::filesystem::create_directory(PathOf(folder)); }
    ~TempFolder() override {
        std::error_code ignored;
        std::filesystem::remove_all(PathOf(folder), ignored);
    }

  protected:
    std::string At(const std::string& name) const { return folder + "\\" + name; }
    void Write(const std::string& name, std::string_view content) const { ReplaceFile(At(name), content); }
    std::string Read(const std::string& name) const { return ReadFile(At(name)); }
    void MakeFolder(const std::string& name) const { std::filesystem::create_directories(PathOf(At(name))); }

    const std::string folder = TextOf(std::filesystem::temp_directory_path() /
                                      PathOf("quillon-\xC3\xBC-" + std::to_string(std::random_device{}())));
};

} // namespace quillon
