// The extension put on a phone that there is already.
#include <cstdio>
#include <filesystem>
#include <memory>

#include "simulator/tool/built_extension.h"
#include "simulator/tool/completion.h"
#include "simulator/tool/verbs.h"

namespace tool {
namespace {

struct Install {
    std::string root;
    std::filesystem::path library;
};

void run(const Install& install) {
    requireRoot(install.root);
    maker::Extension extension = builtExtension(processorOf(install.root));
    if (!install.library.empty()) {
        requireFile(install.library);
        extension.library = install.library;
    }
    phone::require(maker::installExtension(std::filesystem::canonical(install.root), extension));
    std::printf("%s: %s is installed\n", install.root.c_str(), extension.library.c_str());
}

}  // namespace

void addInstall(CLI::App& app) {
    auto install = std::make_shared<Install>();
    CLI::App* verb = app.add_subcommand("install", "Put the extension on a phone, in place of an earlier one");
    verb->add_option("ROOT", install->root, "The phone")->required()->type_name(kDirectory);
    verb->add_option("--library", install->library,
                     "The extension library to install, also one in the phone's own format (default: the built one)")
        ->type_name(kFile);
    verb->footer(
        "Copies the library, its filter and the preference bundle; a host that runs goes on with what it has loaded.\n"
        "\nExample:\n"
        "  phonesim install phone");
    verb->callback([install] { run(*install); });
}

}  // namespace tool
