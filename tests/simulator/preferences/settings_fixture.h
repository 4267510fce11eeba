// A phone whose Settings app a test looks at from outside.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

#include "simulator/hosts/remote/host_process.h"
#include "simulator/runtime/process/device_profiles.h"

class SettingsTest : public testing::Test {
  protected:
    using Json = nlohmann::json;
    using Host = hosts::HostProcess;

    SettingsTest();
    ~SettingsTest() override;

    void makePhone(const std::string& device = "iphone6-8.4", const std::string& language = "en",
                   bool rightToLeft = false);
    void makePhone(const phone::Device& device) const;
    // The page of the tests' own bundle, with its entry. `executable` is a file of this machine.
    void installBundle(const std::string& executable = TEST_PAGE) const;
    // An entry with a list of its own: "items" as a property list's text.
    void installList(const std::string& name, const std::string& items) const;

    hosts::HostOptions options() const;
    Json page(Host& host) const { return host.call({{"do", "rows"}}); }
    Json show(Host& host, const std::string& screen) const;
    // The row with that label; fails the test when there is none.
    Json row(Host& host, const std::string& label) const;
    // The message of the HostError that the command ends in; fails the test when there is none.
    std::string errorOf(Host& host, const Json& command) const;

    void write(const std::string& phonePath, const std::string& contents) const;
    std::string read(const std::string& phonePath) const;

    std::filesystem::path root_;
};

// A property list's text.
std::string dictionary(const std::string& contents);
std::string text(const std::string& key, const std::string& value);
// A switch of domain com.example.lamp, whose notification is com.example.lamp/KEY.
std::string switchItem(const std::string& label, const std::string& key, const std::string& more = "");

constexpr const char* kLampFile = "private/var/mobile/Library/Preferences/com.example.lamp.plist";
