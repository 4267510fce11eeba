#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>

#include "simulator/hosts/remote/host_process.h"
#include "simulator/tool/verbs.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

struct Shot {
    std::string root, screen, text, out;
    hosts::HostKind process = hosts::HostKind::callBarViewService;
    bool withoutExtension = false;
    bool rowDetails = false;
    bool editing = false;
    double timeout = 60;
};

// A picture appears at its place only when it is complete.
void takePicture(hosts::HostProcess& host, const fs::path& out) {
    fs::path part = out.parent_path() / ("." + out.stem().string() + ".part.png");
    try {
        host.call({{"do", "shot"}, {"out", part.string()}});
        fs::rename(part, out);
    } catch (...) {
        std::error_code ignored;
        fs::remove(part, ignored);
        throw;
    }
}

void run(const Shot& shot) {
    requireRoot(shot.root);
    if (shot.out.empty() && !shot.rowDetails) throw Problem("give --out FILE.png, --row-details, or both");
    if ((shot.screen == "search") == shot.text.empty()) {
        throw Problem("the screen search needs a TEXT to search for, the others take none");
    }
    fs::path out = shot.out.empty() ? fs::path() : fs::absolute(shot.out);
    if (!shot.out.empty() && !fs::is_directory(out.parent_path())) {
        throw Problem(out.parent_path().string() + ": there is no such folder");
    }
    hosts::HostOptions options;
    options.root = fs::absolute(shot.root);
    options.withoutExtension = shot.withoutExtension;
    hosts::HostProcess host(shot.process, options);
    nlohmann::json show = {{"do", "show"}, {"screen", shot.screen}, {"editing", shot.editing}};
    if (!shot.text.empty()) show["text"] = shot.text;
    const nlohmann::json settle = {{"do", "settle"}, {"timeout", shot.timeout}};
    // A late picture of the list that the host starts with would land in a reused cell of the next.
    host.call(settle, shot.timeout + 10);
    host.call(show, shot.timeout);
    host.call(settle, shot.timeout + 10);
    host.call({{"do", "layout"}}, shot.timeout);
    if (shot.rowDetails) {
        std::printf("%s\n", host.call({{"do", "rows"}}, shot.timeout).at("rows").dump(2).c_str());
    }
    if (!shot.out.empty()) takePicture(host, out);
    int status = host.quit();
    if (status != 0) throw Problem("the host ended with status " + std::to_string(status));
}

}  // namespace

void addShot(CLI::App& app) {
    auto shot = std::make_shared<Shot>();
    CLI::App* verb = app.add_subcommand("shot", "Start a host, wait until it has settled, and draw one of its screens");
    verb->add_option("ROOT", shot->root, "The phone")->required();
    verb->add_option("SCREEN", shot->screen, "recents, missed, favorites, contacts or search")
        ->required()
        ->check(CLI::IsMember({"recents", "missed", "favorites", "contacts", "search"}));
    verb->add_option("TEXT", shot->text, "What the screen search searches for");
    verb->add_option("--out", shot->out, "The picture to write (PNG)");
    verb->add_flag("--without-extension", shot->withoutExtension, "As the screen looks without the library");
    verb->add_flag("--row-details", shot->rowDetails, "Print each row's contact ID, picture source and frames as JSON");
    verb->add_flag("--editing", shot->editing, "With the list in editing mode");
    const std::map<std::string, hosts::HostKind> processes = {{"callbar", hosts::HostKind::callBarViewService},
                                                              {"springboard", hosts::HostKind::springBoard}};
    verb->add_option("--process", shot->process, "The host: callbar (default) or springboard")
        ->transform(CLI::CheckedTransformer(processes))
        ->default_str("callbar");
    verb->add_option("--timeout", shot->timeout, "Seconds to wait for the host to settle (default: 60)")
        ->check(CLI::PositiveNumber);
    verb->footer(
        "Examples:\n"
        "  phonesim shot phone recents --out recents.png\n"
        "  phonesim shot phone missed --out before.png --without-extension\n"
        "  phonesim shot phone recents --row-details --process springboard");
    verb->callback([shot] { run(*shot); });
}

}  // namespace tool
