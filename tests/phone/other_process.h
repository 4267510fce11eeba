// The process of other_process/main.mm, from outside.
#pragma once

#include <nlohmann/json.hpp>

#include "simulator/hosts/remote/host_process.h"

namespace test {

constexpr const char* kOtherIdentifier = "com.apple.MobileAddressBook";

class OtherProcess {
  public:
    // With the library, if the phone's filter names the process, or without.
    OtherProcess(hosts::HostOptions options, bool withLibrary)
        : host_(hosts::HostKind::springBoard, with(std::move(options), withLibrary)) {}

    size_t libraries() { return host_.call({{"do", "info"}}).at("libraries").size(); }
    // What was posted has been dealt with before.
    nlohmann::json rows() {
        for (int i = 0; i < 2; ++i) host_.call({{"do", "settle"}, {"timeout", 20}});
        return host_.call({{"do", "rows"}}).at("rows");
    }
    nlohmann::json monograms(int contact) { return host_.call({{"do", "monogram"}, {"contact", contact}}); }
    bool running() { return host_.running(); }

  private:
    static hosts::HostOptions with(hosts::HostOptions options, bool library) {
        options.program = ZELKA_OTHER_PROCESS;
        options.withoutExtension = !library;
        if (options.bundleIdentifier.empty()) options.bundleIdentifier = kOtherIdentifier;
        return options;
    }

    hosts::HostProcess host_;
};

}  // namespace test
