#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>

#include "simulator/maker/calls/call_values.h"
#include "simulator/maker/make_root.h"
#include "simulator/runtime/process/device_profiles.h"
#include "simulator/tool/built_extension.h"
#include "simulator/tool/completion.h"
#include "simulator/tool/counted.h"
#include "simulator/tool/places.h"
#include "simulator/tool/run_lock.h"
#include "simulator/tool/stop_signal.h"
#include "simulator/tool/verbs.h"

namespace tool {
namespace {

std::string profileList() {
    std::string list = "Device profiles:\n";
    for (const phone::DeviceProfile& profile : phone::deviceProfiles()) {
        list += "  " + std::string(profile.id) + std::string(18 - std::min<std::size_t>(17, profile.id.size()), ' ') +
                std::string(profile.title) + "\n";
    }
    return list;
}

std::vector<std::string> profileNames() {
    std::vector<std::string> names;
    for (const phone::DeviceProfile& profile : phone::deviceProfiles()) names.emplace_back(profile.id);
    return names;
}

// One line that counts on a terminal, a line a step elsewhere. Work of less than a thousand is not worth a word.
void showProgress(std::string_view what, long done, long total) {
    bool terminal = isatty(STDERR_FILENO) != 0;
    if (total < 1000 || (done % (terminal ? 100 : 10000) != 0 && done != total)) return;
    std::fprintf(stderr, "%s%.*s: %ld of %ld%s", terminal ? "\r" : "", static_cast<int>(what.size()), what.data(), done,
                 total, terminal && done < total ? "" : "\n");
}

void run(const maker::RootOptions& options, bool verbose) {
    // Its hosts would go on with a phone that is gone.
    std::optional<RunLock> notRunning;
    if (options.force && maker::isRoot(options.root))
        notRunning = RunLock::take(std::filesystem::canonical(options.root)).value();
    const StopSignal stop;
    const auto progress = [&stop](std::string_view what, long done, long total) {
        stop.throwIfReceived();
        showProgress(what, done, total);
    };
    const maker::RootReport report = maker::makeRoot(options, progress).value();
    for (const std::string& sentence : maker::sentences(report.findings, verbose))
        std::fprintf(stderr, "phonesim: %s\n", sentence.c_str());
    std::printf("%s: %s, %ld with a picture, %s\n", options.root.c_str(), counted(report.contacts, "contact").c_str(),
                report.pictures, counted(report.calls, "call").c_str());
}

}  // namespace

void addNew(CLI::App& app) {
    auto options = std::make_shared<maker::RootOptions>();
    options->processor = phone::kProcessor;
    auto library = std::make_shared<std::filesystem::path>();
    auto verbose = std::make_shared<bool>(false);
    CLI::App* verb = app.add_subcommand("new", "Make a phone: a directory shaped like a phone's file system");
    verb->add_option("ROOT", options->root, "The directory to make; it must not exist, or be empty")
        ->required()
        ->type_name(kDirectory);
    auto* contacts =
        verb->add_option("--contacts", options->contacts,
                         "Contacts from files of vCards, CSV or LDIF, or folders of them; may be given several times")
            ->type_name(kFile)
            ->allow_extra_args(false);
    auto* count = verb->add_option("--contacts-count", options->contactsCount, "That many made-up contacts")
                      ->check(CLI::Range(1, 1000000));
    auto* book = verb->add_option("--address-book", options->addressBook, "AddressBook.sqlitedb of a real phone")
                     ->type_name(kFile);
    auto* images =
        verb->add_option("--images", options->images, "AddressBookImages.sqlitedb of the same phone")->type_name(kFile);
    auto* backup =
        verb->add_option("--backup", options->backup,
                         "The folder of a phone's unencrypted backup: contacts, calls, favourites and device")
            ->type_name(kDirectory);
    contacts->excludes(count)->excludes(book)->excludes(backup);
    count->excludes(backup);
    book->excludes(backup);
    count->excludes(book);
    images->needs(book);
    verb->add_option(
            "--calls", options->calls,
            "Calls from a call log (CSV, XML), or call_history.db or CallHistory.storedata of a real phone; made up "
            "if left out")
        ->type_name(kFile);
    verb->add_option_function<std::string>(
        "--now",
        [options](const std::string& text) {
            std::optional<double> moment = maker::readDate(text);
            if (!moment) throw Problem("--now: \"" + text + "\" is no date and time such as \"2015-06-01 09:41\"");
            options->now = *moment;
        },
        "The date and time (UTC) for which the calls are made; the present if left out");
    verb->add_flag("--no-calls", options->noCalls, "Leave the call history empty if --calls is left out");
    verb->add_option("--device", options->device, "Device profile, see below (default: iphone6-8.4)")
        ->check(offered(profileNames()));
    verb->add_option("--region", options->region, "Country of numbers without country code (default: US)");
    verb->add_option("--language", options->language,
                     "The interface's language, by which names are sorted (default: en)");
    verb->add_option(
        "--charset", options->charset,
        "The character set of contacts and calls in which a file does not name its own, such as windows-1252");
    verb->add_option("--photos", options->photos,
                     "A folder besides that of the contacts from which their files may name pictures")
        ->type_name(kDirectory);
    verb->add_flag("--verbose", *verbose,
                   "Say of each thing that is left out or mended what it is, not of the first only");
    verb->add_flag("--right-to-left,--rtl", options->rightToLeft, "Lay the interface out from right to left");
    verb->add_option("--processor", options->processor,
                     "What its hosts are built for, and run on under an emulator (default: this machine's)")
        ->check(CLI::IsMember(processors()));
    verb->add_option("--library", *library,
                     "The extension library to install, also one in the phone's own format (default: the built one)")
        ->type_name(kFile);
    verb->add_flag("--force", options->force, "Replace a phone that is already there");
    verb->footer(
        profileList() +
        "\nCalls in a text file, one a line: when, number, incoming|outgoing|missed[, seconds[, unlinked]]\n"
        "  2015-06-01 09:41, +1 212 555 0142, incoming, 63\n"
        "  -2h, bob@example.com, missed\n"
        "or a table whose first row names the columns: Date, Number, Type, Duration, Name. A date and time without\n"
        "zone is UTC.\n"
        "vCards with the same X-LINKED-PERSON:<text> are linked contacts of one person.\n"
        "\nExamples:\n"
        "  phonesim new phone --contacts friends.vcf --contacts google.csv --calls calls.csv\n"
        "  phonesim new phone --address-book AddressBook.sqlitedb --images AddressBookImages.sqlitedb \\\n"
        "      --calls call_history.db --device iphone6plus-9.3\n"
        "  phonesim new phone --backup Backup/00008020-000000000000002E\n"
        "  phonesim new phone --force --contacts-count 10000 --rtl");
    verb->callback([options, library, verbose] {
        options->extension = builtExtension(options->processor);
        if (!library->empty()) {
            requireFile(*library);
            options->extension.library = *library;
        }
        run(*options, *verbose);
    });
}

}  // namespace tool
