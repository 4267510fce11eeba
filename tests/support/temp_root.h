#pragma once

// An empty phone root for one test, removed with it.

#include <filesystem>
#include <string>
#include <string_view>

namespace test {

class TempRoot {
  public:
    // A root with the phone's directories and the named device profile's device.plist
    // (simulator/runtime/process/device_profiles.h).
    explicit TempRoot(std::string_view profile = "iphone6-8.4");
    ~TempRoot();
    TempRoot(const TempRoot&) = delete;
    TempRoot& operator=(const TempRoot&) = delete;

    const std::filesystem::path& path() const { return path_; }
    // The path on this machine of a phone path such as "/var/mobile".
    std::string host(std::string_view phonePath) const;
    // Writes a file, making its directories.
    void write(std::string_view phonePath, std::string_view contents) const;
    // The file's contents; a missing file reads as an empty one, use exists() to tell.
    std::string read(std::string_view phonePath) const;
    bool exists(std::string_view phonePath) const;
    // Becomes another device.
    void setDevice(std::string_view profile, bool rightToLeft = false) const;

  private:
    std::filesystem::path path_;
};

}  // namespace test
