#include <chrono>
#include <cmath>
#include <filesystem>
#include <memory>

#include "simulator/maker/calls/call_history.h"
#include "simulator/maker/calls/call_values.h"
#include "simulator/runtime/process/device.h"
#include "simulator/tool/book_change.h"
#include "simulator/tool/completion.h"
#include "simulator/tool/verbs.h"

namespace tool {
namespace {

struct NewCall {
    std::string root, number, kind;
    std::optional<int> seconds;
    double moment = 0;  // seconds since 1970-01-01 UTC; 0: the present
};

double present() {
    return std::floor(std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count());
}

void arrive(const NewCall& given) {
    requireRoot(given.root);
    maker::WrittenCall written;
    written.call.address = given.number;
    written.call.date = given.moment > 0 ? given.moment : present();
    written.call.kind = *maker::readKind(given.kind);
    constexpr int usual = 30;
    const bool missed = written.call.kind == maker::CallKind::missed;
    if (missed && given.seconds.value_or(0) != 0) throw Problem("--seconds: a missed call lasts 0 seconds");
    if (written.call.kind == maker::CallKind::incoming && given.seconds == 0)
        throw Problem("--seconds: an incoming call of 0 seconds is a missed one");
    written.call.duration = missed ? 0 : given.seconds.value_or(usual);
    const std::filesystem::path root = std::filesystem::canonical(given.root);
    requireSoundDatabases(root);
    maker::AddressBookBuilder builder = maker::AddressBookBuilder::open(root).value();
    maker::addWrittenCalls(builder, root, {written}, phone::readDevice(root).value().region).value();
    phone::require(builder.finish());
    postCallsChanged(root);
}

}  // namespace

void addCall(CLI::App& app) {
    auto call = std::make_shared<NewCall>();
    CLI::App* verb = app.add_subcommand("call", "Add a call to the history; it appears in Recents at once");
    verb->add_option("ROOT", call->root, "The phone")->required()->type_name(kDirectory);
    verb->add_option("NUMBER", call->number, "The number or e-mail address of the other side")->required();
    verb->add_option("KIND", call->kind, "missed, incoming or outgoing")
        ->required()
        ->check(CLI::IsMember({"missed", "incoming", "outgoing"}));
    verb->add_option("--seconds", call->seconds, "How long it lasted (default: 30, and 0 for a missed one)")
        ->check(CLI::Range(0, 86400));
    verb->add_option_function<std::string>(
        "--at",
        [call](const std::string& text) {
            const std::optional<double> moment = maker::readDate(text);
            if (!moment) throw Problem("--at: \"" + text + "\" is no date and time such as \"2015-06-01 09:41\"");
            call->moment = *moment;
        },
        "Its date and time in UTC (default: now)");
    verb->footer(
        "Examples:\n"
        "  phonesim call phone \"+1 212 555 0142\" missed\n"
        "  phonesim call phone ann@example.com incoming --seconds 63");
    verb->callback([call] { arrive(*call); });
}

}  // namespace tool
