#include <cstdio>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <regex>
#include <string_view>

#include "simulator/hosts/remote/host_process.h"
#include "simulator/tool/built_extension.h"
#include "simulator/tool/completion.h"
#include "simulator/tool/host_start.h"
#include "simulator/tool/picture_file.h"
#include "simulator/tool/verbs.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSettings = "settings";

struct Shot {
    std::string root, screen, text, out;
    std::string process = "callbar";
    bool withoutExtension = false;
    bool rowDetails = false;
    bool editing = false;
    double timeout = 60;

    bool isSettings() const { return screen.compare(0, kSettings.size(), kSettings) == 0; }
    hosts::HostKind kind() const {
        if (isSettings()) return hosts::HostKind::preferences;
        return process == "springboard" ? hosts::HostKind::springBoard : hosts::HostKind::callBarViewService;
    }
};

void requireSense(const Shot& shot) {
    if (shot.isSettings() && shot.editing) throw Problem("the Settings app's pages have no editing mode");
    if (shot.out.empty() && !shot.rowDetails) throw Problem("give --out FILE, --row-details, or both");
    if (shot.out == "-" && shot.rowDetails) throw Problem("--out -: standard output has the row details already");
    if ((shot.screen == "search") == shot.text.empty()) {
        throw Problem("the screen search needs a TEXT to search for, the others take none");
    }
}

std::string knownScreen(const std::string& name) {
    static const std::regex known("recents|missed|favorites|contacts|search|settings(/[^/]+)?");
    if (std::regex_match(name, known)) return {};
    return "there is no screen \"" + name +
           "\": recents, missed, favorites, contacts, search, settings or settings/ENTRY";
}

void showScreen(hosts::HostProcess& host, const Shot& shot) {
    nlohmann::json show = {{"do", "show"}, {"screen", shot.screen}, {"editing", shot.editing}};
    if (!shot.text.empty()) show["text"] = shot.text;
    const nlohmann::json settle = {{"do", "settle"}, {"timeout", shot.timeout}};
    // The host knows better what it waits for in vain: time enough for it to say so.
    const double patience = shot.timeout + 10;
    // A late picture of the list that the host starts with would land in a reused cell of the next.
    host.call(settle, patience);
    host.call(show, patience);
    host.call(settle, patience);
    host.call({{"do", "layout"}}, patience);
}

// The favourites are buttons, the other screens have rows, a page of the Settings app a title and an alert besides.
nlohmann::json detailsOf(hosts::HostProcess& host, const Shot& shot) {
    if (shot.screen == "favorites") return host.call({{"do", "favorites"}}, shot.timeout + 10).at("buttons");
    nlohmann::json reply = host.call({{"do", "rows"}}, shot.timeout + 10);
    return shot.isSettings() ? reply : reply.at("rows");
}

void run(const Shot& shot) {
    requireRoot(shot.root);
    requireSense(shot);
    std::optional<PictureFile> picture;
    if (!shot.out.empty()) picture.emplace(shot.out);
    const fs::path root = fs::absolute(shot.root);
    warnOfDamage(root);
    if (!shot.withoutExtension) warnOfStaleLibrary(root);
    const auto host = startHost(shot.kind(), root, shot.withoutExtension);
    showScreen(*host, shot);
    if (shot.rowDetails) std::printf("%s\n", detailsOf(*host, shot).dump(2).c_str());
    if (picture) host->call({{"do", "shot"}, {"out", picture->drawn().string()}});
    const int status = host->quit();
    if (status != 0) throw Problem("the host ended with status " + std::to_string(status));
    if (picture) picture->finish();
}

}  // namespace

void addShot(CLI::App& app) {
    auto shot = std::make_shared<Shot>();
    CLI::App* verb = app.add_subcommand("shot", "Start a host, wait until it has settled, and draw one of its screens");
    verb->add_option("ROOT", shot->root, "The phone")->required()->type_name(kDirectory);
    verb->add_option("SCREEN", shot->screen, "recents, missed, favorites, contacts, search, settings or settings/ENTRY")
        ->required()
        ->check(offered({"recents", "missed", "favorites", "contacts", "search", "settings", "settings/zelkacb"}))
        ->check(knownScreen);
    verb->add_option("TEXT", shot->text, "What the screen search searches for");
    verb->add_option("--out", shot->out, "The picture to write: .png, .jpg or .webp, or - for standard output (PNG)")
        ->type_name(kFile);
    verb->add_flag("--without-extension", shot->withoutExtension, "As the screen looks without the library");
    verb->add_flag("--row-details", shot->rowDetails,
                   "Print what each row shows, such as contact ID, picture source and frames, as JSON");
    verb->add_flag("--editing", shot->editing, "With the list in editing mode");
    verb->add_option("--process", shot->process, "The host: callbar (default) or springboard")
        ->check(CLI::IsMember({"callbar", "springboard"}));
    verb->add_option("--timeout", shot->timeout, "Seconds to wait for the host to settle (default: 60)")
        ->check(CLI::Range(0.001, 86400.0));
    verb->footer(
        "Examples:\n"
        "  phonesim shot phone recents --out recents.png\n"
        "  phonesim shot phone missed --out before.jpg --without-extension\n"
        "  phonesim shot phone recents --row-details --process springboard\n"
        "  phonesim shot phone settings/zelkacb --out settings.png");
    verb->callback([shot] { run(*shot); });
}

}  // namespace tool
