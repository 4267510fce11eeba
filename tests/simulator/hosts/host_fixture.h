// A phone with a handful of contacts and calls, for tests that look at the hosts from outside.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

#include "simulator/hosts/remote/host_process.h"

// Contact IDs in the order of the vCards.
enum : int { kAnn = 1, kBob = 2, kCara = 3, kAcme = 4, kNobody = 5, kFirstTwin = 6, kSecondTwin = 7 };

class HostTest : public testing::Test {
  protected:
    using Json = nlohmann::json;

    HostTest();
    ~HostTest() override;

    // Makes the phone, without the library. Call it once.
    void makePhone(const std::string& device = "iphone6-8.4", bool rightToLeft = false);
    // The favourites list of the phone, as a property list's text.
    void writeFavorites(const std::string& propertyList) const;
    hosts::HostOptions options() const;

    // The visible rows of a screen.
    Json rowsOf(hosts::HostProcess& host, const std::string& screen, bool editing = false) const;
    // The message of the HostError that the command ends in; fails the test when there is none.
    std::string errorOf(hosts::HostProcess& host, const Json& command) const;

    std::filesystem::path folder_;
    std::filesystem::path root_;
};

// [x, y, width, height], as the remote control tells frames.
struct Frame {
    explicit Frame(const nlohmann::json& frame)
        : x(frame.at(0)), y(frame.at(1)), width(frame.at(2)), height(frame.at(3)) {}
    double right() const { return x + width; }
    double bottom() const { return y + height; }
    double x, y, width, height;
};
