// phonesim: makes stand-in phones and looks at them.
#include <cstdio>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "simulator/maker/make_root.h"
#include "simulator/tool/completion.h"
#include "simulator/tool/manual.h"
#include "simulator/tool/stop_signal.h"
#include "simulator/tool/verbs.h"

namespace tool {

void requireRoot(const std::string& root) {
    if (maker::isRoot(root)) return;
    throw Problem(root + ": is not a phone root; \"phonesim new " + root + "\" makes one");
}

void requireFile(const std::filesystem::path& file) {
    if (!std::filesystem::exists(file)) throw Problem(file.string() + ": there is no such file");
    if (!std::filesystem::is_regular_file(file)) throw Problem(file.string() + ": is not a file");
}

// The parser would only miss a verb, and not say which word it took for none.
void requireKnownVerb(const CLI::App& app, const std::string& word) {
    std::string verbs;
    for (const CLI::App* verb : app.get_subcommands([](const CLI::App*) { return true; })) {
        if (verb->get_name() == word) return;
        verbs += (verbs.empty() ? "" : ", ") + verb->get_name();
    }
    throw CLI::ParseError("there is no verb \"" + word + "\"; there are: " + verbs, CLI::ExitCodes::ExtrasError);
}

void addHelp(CLI::App& app) {
    auto wanted = std::make_shared<std::string>();
    std::vector<std::string> verbs;
    for (const CLI::App* verb : app.get_subcommands([](const CLI::App*) { return true; }))
        verbs.push_back(verb->get_name());
    CLI::App* verb = app.add_subcommand("help", "Tell more about a verb, with examples");
    verb->add_option("VERB", *wanted, "The verb; all in short when left out")->check(offered(verbs));
    verb->footer("Example:\n  phonesim help new");
    verb->callback([&app, wanted] {
        const CLI::App* about = &app;
        std::string name = app.get_name();
        if (!wanted->empty()) {
            requireKnownVerb(app, *wanted);
            about = app.get_subcommand(*wanted);
            name += " " + *wanted;
        }
        // App::help() would be that of the verb that is carried out.
        std::fputs(about->get_formatter()->make_help(about, name, CLI::AppFormatMode::Normal).c_str(), stdout);
    });
}

}  // namespace tool

namespace {

constexpr const char* kVersion = "phonesim " ZELKA_VERSION;
constexpr int kFailure = 1;
constexpr int kMisuse = 2;

// What no user types: the shells' completion asks with the first, the build makes the manual page with the second.
bool doneForOthers(CLI::App& app, const std::vector<std::string>& arguments) {
    if (arguments.empty()) return false;
    std::string output;
    if (arguments.front() == "--complete") {
        output = tool::completions(app, {arguments.begin() + 1, arguments.end()});
    } else if (arguments.front() == "--manual") {
        output = tool::manual(app, kVersion);
    } else {
        return false;
    }
    std::fputs(output.c_str(), stdout);
    return true;
}

int run(int argc, char** argv) {
    CLI::App app{"A stand-in phone on the desk: make one, look at its screens, change things on it.", "phonesim"};
    app.set_version_flag("--version", kVersion);
    app.require_subcommand(1);
    app.footer(
        "\"phonesim help VERB\" or \"phonesim VERB --help\" tells more about each, with examples.\n"
        "Exit status: 0 done, 1 something went wrong, 2 the command line is wrong.\n"
        "\n"
        "Environment:\n"
        "  PHONESIM_HOSTS          the folder of the host programs, if it is not the one beside phonesim\n"
        "  PHONESIM_RANDOM         a number that takes the place of chance, for pictures that come out the same\n"
        "  PHONESIM_NOTIFICATIONS  \"watcher\" delivers Darwin notifications on a thread of their own");
    for (const auto add : {tool::addNew, tool::addList, tool::addInfo, tool::addShot, tool::addRun, tool::addLog,
                           tool::addGet, tool::addSet, tool::addNotify, tool::addAdd, tool::addEdit, tool::addFavorite,
                           tool::addCall, tool::addInstall, tool::addClone, tool::addDelete, tool::addHelp})
        add(app);
    app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return std::string("phonesim: ") + error.what() + "\nphonesim: \"phonesim help\" tells what is expected\n";
    });
    if (doneForOthers(app, {argv + 1, argv + argc})) return 0;
    try {
        if (argc > 1 && argv[1][0] != '-') tool::requireKnownVerb(app, argv[1]);
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : kMisuse;
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const tool::Stopped& stopped) {
        std::fprintf(stderr, "phonesim: stopped\n");
        tool::endBySignal(stopped.signal());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "phonesim: %s\n", error.what());
        return kFailure;
    }
}
