// What other processes of the phone do: the preference bundle, and whoever posts notifications.
#include <cstdio>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>

#include "simulator/runtime/notifications/notification_log.h"
#include "simulator/tool/completion.h"
#include "simulator/tool/settings_file.h"
#include "simulator/tool/verbs.h"

namespace tool {
namespace {

struct Switch {
    const char *key, *notification;
};
constexpr Switch kSwitches[] = {
#define SETTING(name, stem, ...) {"ZelkaCBEnabled" stem, "com.norvex.ZelkaCB" stem "EnabledNotification"},
#include "resources/settings.def"
#undef SETTING
};

std::string keyList() {
    std::string list;
    for (const Switch& known : kSwitches) list += std::string("\n  ") + known.key;
    return list;
}

std::vector<std::string> keys() {
    std::vector<std::string> list;
    for (const Switch& known : kSwitches) list.emplace_back(known.key);
    return list;
}

const Switch& findSwitch(const std::string& key) {
    for (const Switch& known : kSwitches) {
        if (key == known.key) return known;
    }
    throw Problem("there is no setting \"" + key + "\"; there are:" + keyList());
}

struct Change {
    std::string root, key, state, name;
};

}  // namespace

void addSet(CLI::App& app) {
    auto change = std::make_shared<Change>();
    CLI::App* verb = app.add_subcommand("set", "Flip a setting, as the phone's settings would: write it, then post it");
    verb->add_option("ROOT", change->root, "The phone")->required()->type_name(kDirectory);
    verb->add_option("KEY", change->key, "The setting, see below")->required()->check(offered(keys()));
    verb->add_option("STATE", change->state, "on or off")->required()->check(CLI::IsMember({"on", "off"}));
    verb->footer("Settings:" + keyList() + "\n\nExample:\n  phonesim set phone ZelkaCBEnabledRoundedPictures off");
    verb->callback([change] {
        const Switch& known = findSwitch(change->key);
        requireRoot(change->root);
        std::filesystem::path root = std::filesystem::canonical(change->root);
        phone::require(setSwitch(root, known.key, change->state == "on").and_then([&] {
            return phone::postNotification(root, known.notification);
        }));
    });
}

void addGet(CLI::App& app) {
    struct Question {
        std::string root, key;
        bool json = false;
    };
    auto question = std::make_shared<Question>();
    CLI::App* verb = app.add_subcommand("get", "Print a setting of a phone, or all");
    verb->add_option("ROOT", question->root, "The phone")->required()->type_name(kDirectory);
    verb->add_option("KEY", question->key, "The setting, see below; all when left out")->check(offered(keys()));
    verb->add_flag("--json", question->json, "As JSON; null for what is not set");
    verb->footer("Settings:" + keyList() +
                 "\n\nA setting that the file does not have is \"unset\": the library takes its default.\n\n"
                 "Examples:\n  phonesim get phone\n  phonesim get phone ZelkaCBEnabledRoundedPictures");
    verb->callback([question] {
        if (!question->key.empty()) findSwitch(question->key);
        requireRoot(question->root);
        nlohmann::ordered_json json;
        for (const Switch& known : kSwitches) {
            if (!question->key.empty() && question->key != known.key) continue;
            const std::optional<bool> on = readSwitch(std::filesystem::canonical(question->root), known.key).value();
            json[known.key] = on ? nlohmann::ordered_json(*on) : nlohmann::ordered_json();
        }
        if (question->json) {
            std::printf("%s\n", json.dump(2).c_str());
            return;
        }
        for (const auto& [key, value] : json.items()) {
            const char* const state = value.is_null() ? "unset" : (value.get<bool>() ? "on" : "off");
            std::printf("%s%s%s\n", question->key.empty() ? key.c_str() : "", question->key.empty() ? " " : "", state);
        }
    });
}

void addNotify(CLI::App& app) {
    auto change = std::make_shared<Change>();
    CLI::App* verb = app.add_subcommand("notify", "Post a Darwin notification to the processes of a phone");
    verb->add_option("ROOT", change->root, "The phone")->required()->type_name(kDirectory);
    verb->add_option("NAME", change->name, "The notification's name")->required();
    verb->footer("Example:\n  phonesim notify phone com.norvex.ZelkaCBEnabledNotification");
    verb->callback([change] {
        requireRoot(change->root);
        phone::require(phone::postNotification(std::filesystem::canonical(change->root), change->name));
    });
}

}  // namespace tool
