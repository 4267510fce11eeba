#include <poll.h>

#include <cmath>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>

#include "simulator/maker/calls/call_values.h"
#include "simulator/runtime/file_system/phone_root.h"
#include "simulator/tool/completion.h"
#include "simulator/tool/stop_signal.h"
#include "simulator/tool/verbs.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

struct Log {
    std::string root, wanted, since;
    bool follows = false;
};

// As the log's lines begin, in this machine's time.
std::string writtenTime(double moment) {
    const auto seconds = static_cast<time_t>(moment);
    std::tm parts{};
    localtime_r(&seconds, &parts);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &parts);
    return text;
}

// "10m" before now, or a date and time as the log writes it. Throws Problem for another text.
std::string startOf(const std::string& since) {
    if (since.empty()) return {};
    constexpr std::string_view units = "smhd";
    constexpr int seconds[] = {1, 60, 3600, 86400};
    const std::size_t unit = units.find(since.back());
    const std::optional<int> count = maker::wholeNumber(std::string_view(since).substr(0, since.size() - 1));
    if (unit != std::string_view::npos && count)
        return writtenTime(static_cast<double>(std::time(nullptr)) - static_cast<double>(*count) * seconds[unit]);
    if (!maker::readDate(since)) {
        throw Problem("--since: \"" + since +
                      "\" is neither a time ago (10m) nor a date and time such as \"2015-06-01 09:41\"");
    }
    return since;
}

// Prints what is wanted of a log's lines; one without a date belongs to the one before.
class Printer {
  public:
    Printer(std::string wanted, std::string start) : wanted_(std::move(wanted)), start_(std::move(start)) {}

    void print(const std::string& line) {
        const std::string date = line.substr(0, 19);
        if (maker::readDate(date)) isLate_ = date >= start_;
        if (!start_.empty() && !isLate_) return;
        if (line.find(wanted_) == std::string::npos) return;
        std::printf("%s\n", line.c_str());
    }

  private:
    std::string wanted_, start_;
    bool isLate_ = false;
};

// Lines that are whole; a part of one waits for its rest. A log that has become shorter is read anew.
class Reader {
  public:
    explicit Reader(fs::path file) : file_(std::move(file)) {}

    void read(Printer& printer, bool toTheEnd) {
        std::error_code error;
        const auto size = fs::file_size(file_, error);
        if (error) return;
        if (size < place_) place_ = 0;
        std::ifstream stream(file_, std::ios::binary);
        stream.seekg(static_cast<std::streamoff>(place_));
        for (std::string line; std::getline(stream, line);) {
            if (stream.eof() && !toTheEnd) break;
            printer.print(line);
            place_ += line.size() + 1;
        }
        std::fflush(stdout);
    }

  private:
    fs::path file_;
    std::uintmax_t place_ = 0;
};

void follow(Reader& reader, Printer& printer) {
    constexpr int interval = 200;  // milliseconds
    const StopSignal stop;
    while (stop.received() == 0) {
        reader.read(printer, false);
        pollfd wait{stop.descriptor(), POLLIN, 0};
        poll(&wait, 1, interval);
    }
}

void print(const Log& log) {
    requireRoot(log.root);
    const fs::path file = phone::hostPath("/tmp/ZelkaCB.log", fs::canonical(log.root));
    Printer printer(log.wanted, startOf(log.since));
    Reader reader(file);
    if (log.follows) return follow(reader, printer);
    if (!fs::exists(file))
        throw Problem(log.root + ": nothing is logged yet; \"phonesim shot\" starts a host that loads the library");
    reader.read(printer, true);
}

}  // namespace

void addLog(CLI::App& app) {
    auto log = std::make_shared<Log>();
    CLI::App* verb = app.add_subcommand("log", "Print what the library has logged on a phone");
    verb->add_option("ROOT", log->root, "The phone")->required()->type_name(kDirectory);
    verb->add_flag("-f,--follow", log->follows, "Go on with what is logged from now on, until stopped");
    verb->add_option("--grep", log->wanted, "Only lines in which this text stands");
    verb->add_option("--since", log->since,
                     "Only lines of this long ago or later (30s, 10m, 2h, 1d), or of a date and time");
    verb->footer(
        "Examples:\n  phonesim log phone\n  phonesim log phone -f --grep Error\n  phonesim log phone --since 10m");
    verb->callback([log] { print(*log); });
}

}  // namespace tool
