// Looking over phones.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#include "simulator/maker/make_root.h"
#include "simulator/tool/completion.h"
#include "simulator/tool/summary.h"
#include "simulator/tool/verbs.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

struct Query {
    std::vector<fs::path> folders;
    std::string root;
    bool json = false;
};

// The folder itself, if it is a phone, else those in it, by name.
void addPhones(const fs::path& folder, std::vector<fs::path>& phones) {
    if (!fs::is_directory(folder)) throw Problem(folder.string() + ": there is no such folder");
    if (maker::isRoot(folder)) return phones.push_back(folder);
    std::vector<fs::path> found;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error))
        if (maker::isRoot(entry.path())) found.push_back(folder == "." ? entry.path().filename() : entry.path());
    std::sort(found.begin(), found.end());
    phones.insert(phones.end(), found.begin(), found.end());
}

// Columns as wide as their widest cell.
void printTable(const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::size_t> widths(rows.front().size());
    for (const auto& row : rows)
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i)
            line += row[i] + (i + 1 < row.size() ? std::string(widths[i] - row[i].size() + 2, ' ') : "");
        std::printf("%s\n", line.c_str());
    }
}

void list(const Query& query) {
    std::vector<fs::path> phones;
    for (const fs::path& folder : query.folders) addPhones(folder, phones);
    if (query.folders.empty()) addPhones(".", phones);
    auto json = nlohmann::ordered_json::array();
    std::vector<std::vector<std::string>> rows = {{"PHONE", "MODEL", "SYSTEM", "CONTACTS", "CALLS", "STATE"}};
    for (const fs::path& root : phones) {
        const Summary summary = summaryOf(root);
        json.push_back(jsonOf(summary));
        rows.push_back({root.string(), summary.device.machine, summary.device.systemVersion, written(summary.contacts),
                        written(summary.calls), summary.running ? "running" : "not running"});
    }
    if (query.json) {
        std::printf("%s\n", json.dump(2).c_str());
    } else if (phones.empty()) {
        std::fprintf(stderr, "phonesim: there is no phone here; \"phonesim new\" makes one\n");
    } else {
        printTable(rows);
    }
}

void info(const Query& query) {
    const Summary summary = summaryOf(query.root);
    const phone::Device& device = summary.device;
    if (query.json) {
        std::printf("%s\n", jsonOf(summary).dump(2).c_str());
        return;
    }
    char screen[64];
    std::snprintf(screen, sizeof screen, "%g x %g points, scale %g", device.width, device.height, device.scale);
    const std::pair<const char*, std::string> lines[] = {
        {"phone", summary.root.string()},
        {"model", device.machine + " (" + device.name + ")"},
        {"system", device.systemVersion},
        {"region", device.region},
        {"language", device.language + (device.rightToLeft ? ", from right to left" : "")},
        {"screen", screen},
        {"contacts", written(summary.contacts) + ", " + written(summary.pictures) + " with a picture"},
        {"calls", written(summary.calls) + ", " + written(summary.missed) + " missed"},
        {"favorites", written(summary.favorites)},
        {"library", summary.library.empty() ? "not installed" : summary.library},
        {"state", summary.running ? "running" : "not running"}};
    for (const auto& [name, value] : lines) std::printf("%-10s %s\n", name, value.c_str());
}

}  // namespace

void addList(CLI::App& app) {
    auto query = std::make_shared<Query>();
    CLI::App* verb = app.add_subcommand("list", "List phones: model, system, contacts, calls, and whether they run");
    verb->add_option("FOLDER", query->folders, "Phones, and folders that they lie in (default: the present one)")
        ->type_name(kDirectory);
    verb->add_flag("--json", query->json, "As JSON, with everything that \"phonesim info\" knows");
    verb->footer("Examples:\n  phonesim list\n  phonesim list out --json");
    verb->callback([query] { list(*query); });
}

void addInfo(CLI::App& app) {
    auto query = std::make_shared<Query>();
    CLI::App* verb = app.add_subcommand("info", "Say what a phone is and what is on it");
    verb->add_option("ROOT", query->root, "The phone")->required()->type_name(kDirectory);
    verb->add_flag("--json", query->json, "As JSON");
    verb->footer("Examples:\n  phonesim info phone\n  phonesim info phone --json");
    verb->callback([query] { info(*query); });
}

}  // namespace tool
