#include "simulator/tool/completion.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace tool {
namespace {

constexpr const char* kOffered = "offered";

using Options = std::vector<CLI::Option*>;

// What follows a verb, sorted out.
struct Given {
    std::vector<const CLI::Option*> named;
    CLI::Option* awaiting = nullptr;  // an option that the last word is the value of
    std::size_t positionals = 0;
};

bool takesValue(const CLI::Option& option) { return option.get_items_expected_max() > 0; }

CLI::App* verbNamed(CLI::App& app, const std::string& name) {
    for (CLI::App* verb : app.get_subcommands({})) {
        if (verb->get_name() == name) return verb;
    }
    return nullptr;
}

CLI::Option* optionNamed(const Options& options, const std::string& word) {
    const auto found = std::find_if(options.begin(), options.end(), [&word](const CLI::Option* option) {
        return option->nonpositional() && option->check_name(word);
    });
    return found == options.end() ? nullptr : *found;
}

Given sortOut(const Options& options, const std::vector<std::string>& words) {
    Given given;
    for (std::size_t i = 1; i + 1 < words.size(); ++i) {
        if (words[i].rfind('-', 0) != 0) {
            ++given.positionals;
            continue;
        }
        CLI::Option* option = optionNamed(options, words[i]);
        if (option == nullptr) continue;
        given.named.push_back(option);
        if (!takesValue(*option)) continue;
        if (i + 2 == words.size()) given.awaiting = option;
        ++i;
    }
    return given;
}

class Candidates {
  public:
    explicit Candidates(std::string begin) : begin_(std::move(begin)) {}

    void add(const std::string& word, const std::string& description = "") {
        if (word.rfind(begin_, 0) != 0) return;
        lines_ += word + (description.empty() ? "" : "\t" + description) + "\n";
    }
    void addPaths(const char* kind) { lines_ += std::string(kind) + "\n"; }

    // The words of a validator's description, "{a,b}".
    void addSet(std::string_view text) {
        const std::size_t opening = text.find('{');
        if (opening == std::string_view::npos) return;
        text = text.substr(opening + 1, text.find('}') - opening - 1);
        while (!text.empty()) {
            const std::size_t comma = std::min(text.find(','), text.size());
            add(std::string(text.substr(0, comma)));
            text.remove_prefix(std::min(comma + 1, text.size()));
        }
    }

    void addValues(CLI::Option& option) {
        const std::string type = option.get_type_name();
        if (type == kFile) return addPaths(":files");
        if (type == kDirectory) return addPaths(":directories");
        addSet(type);
        try {
            CLI::Validator list = *option.get_validator(kOffered);
            addSet(list.active().get_description());
        } catch (const CLI::OptionNotFound&) {
            // Nothing is offered for it.
        }
    }

    void addOptions(const Options& options, const std::vector<const CLI::Option*>& given) {
        for (const CLI::Option* option : options) {
            if (!option->nonpositional() || std::find(given.begin(), given.end(), option) != given.end()) continue;
            for (const std::string& name : option->get_lnames()) add("--" + name, option->get_description());
        }
    }

    std::string lines() const { return lines_; }

  private:
    std::string begin_;
    std::string lines_;
};

void addFollowing(Candidates& candidates, const Options& options, const std::vector<std::string>& words) {
    const Given given = sortOut(options, words);
    if (given.awaiting != nullptr) return candidates.addValues(*given.awaiting);
    if (words.back().rfind('-', 0) == 0) return candidates.addOptions(options, given.named);
    Options positionals;
    std::copy_if(options.begin(), options.end(), std::back_inserter(positionals),
                 [](const CLI::Option* option) { return option->get_positional(); });
    if (given.positionals < positionals.size()) return candidates.addValues(*positionals[given.positionals]);
    candidates.addOptions(options, given.named);
}

}  // namespace

CLI::Validator offered(const std::vector<std::string>& values) {
    CLI::IsMember list(values);
    list.name(kOffered).active(false);
    return list;
}

std::string completions(CLI::App& app, const std::vector<std::string>& words) {
    if (words.empty()) return {};
    Candidates candidates(words.back());
    if (words.size() > 1) {
        if (CLI::App* verb = verbNamed(app, words.front())) addFollowing(candidates, verb->get_options(), words);
        return candidates.lines();
    }
    for (const CLI::App* verb : app.get_subcommands({})) candidates.add(verb->get_name(), verb->get_description());
    if (words.back().rfind('-', 0) == 0) candidates.addOptions(app.get_options(), {});
    return candidates.lines();
}

}  // namespace tool
