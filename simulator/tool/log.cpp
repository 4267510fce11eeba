#include <cstdio>
#include <filesystem>
#include <memory>

#include "simulator/maker/common/read_file.h"
#include "simulator/runtime/file_system/phone_root.h"
#include "simulator/tool/completion.h"
#include "simulator/tool/verbs.h"

namespace tool {

void addLog(CLI::App& app) {
    auto root = std::make_shared<std::string>();
    CLI::App* verb = app.add_subcommand("log", "Print what the library has logged on a phone");
    verb->add_option("ROOT", *root, "The phone")->required()->type_name(kDirectory);
    verb->footer("Example:\n  phonesim log phone");
    verb->callback([root] {
        requireRoot(*root);
        std::string file = phone::hostPath("/tmp/ZelkaCB.log", std::filesystem::canonical(*root));
        if (!std::filesystem::exists(file)) {
            throw Problem(*root + ": nothing is logged yet; \"phonesim shot\" starts a host that loads the library");
        }
        const std::string log = maker::readFile(file).value();
        std::fwrite(log.data(), 1, log.size(), stdout);
    });
}

}  // namespace tool
