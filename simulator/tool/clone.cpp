// Whole phones: a second one like the first, and one less.
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#include "simulator/maker/make_root.h"
#include "simulator/tool/completion.h"
#include "simulator/tool/run_lock.h"
#include "simulator/tool/verbs.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

struct Places {
    std::string root, copy;
};

// Beside its place first, so that a copy that fails half-way is no phone.
void clone(const Places& places) {
    requireRoot(places.root);
    if (fs::exists(fs::symlink_status(places.copy)))
        throw Problem(places.copy + ": exists already; it is left as it is");
    const fs::path root = fs::canonical(places.root);
    // Its hosts would write while it is copied.
    const RunLock notRunning = RunLock::take(root).value();
    fs::path copy = fs::absolute(places.copy).lexically_normal();
    if (!copy.has_filename()) copy = copy.parent_path();
    fs::create_directories(copy.parent_path());
    const fs::path part = copy.parent_path() / ("." + copy.filename().string() + ".part");
    std::error_code error, ignored;
    fs::copy(root, part, fs::copy_options::recursive | fs::copy_options::copy_symlinks, error);
    if (!error) fs::remove(part / "private/var/run/phonesim.lock", ignored);
    if (!error) fs::rename(part, copy, error);
    if (!error) return;
    fs::remove_all(part, ignored);
    throw Problem(places.copy + ": cannot be made: " + error.message());
}

void remove(const std::string& name) {
    requireRoot(name);
    const fs::path root = fs::canonical(name);
    const RunLock notRunning = RunLock::take(root).value();
    std::error_code error;
    fs::remove_all(root, error);
    // What led to it leads nowhere now.
    if (!error && fs::is_symlink(fs::symlink_status(name))) fs::remove(name, error);
    if (error) throw Problem(name + ": cannot be removed: " + error.message());
}

}  // namespace

void addClone(CLI::App& app) {
    auto places = std::make_shared<Places>();
    CLI::App* verb = app.add_subcommand("clone", "Make a second phone, with everything that is on the first");
    verb->add_option("ROOT", places->root, "The phone")->required()->type_name(kDirectory);
    verb->add_option("COPY", places->copy, "The new phone; it must not exist")->required()->type_name(kDirectory);
    verb->footer("Example:\n  phonesim clone phone second-phone");
    verb->callback([places] { clone(*places); });
}

void addDelete(CLI::App& app) {
    auto root = std::make_shared<std::string>();
    CLI::App* verb = app.add_subcommand("delete", "Remove a phone with everything that is on it");
    verb->add_option("ROOT", *root, "The phone")->required()->type_name(kDirectory);
    verb->footer("To remove a contact: phonesim edit ROOT CONTACT --delete\n\nExample:\n  phonesim delete phone");
    verb->callback([root] { remove(*root); });
}

}  // namespace tool
