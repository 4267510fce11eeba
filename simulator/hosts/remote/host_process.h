// The far end of a host program's remote control: starts a host as a process of its own and sends it commands.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <nlohmann/json_fwd.hpp>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "simulator/hosts/remote/line_stream.h"
#include "simulator/hosts/remote/subprocess.h"

namespace hosts {

// The two processes of the phone that show CallBar's lists, and the Settings app.
enum class HostKind { springBoard, callBarViewService, preferences };

// The program's file name in the build and the bundle identifier that it boots with.
const char* programName(HostKind kind);
const char* bundleIdentifier(HostKind kind);

// The host's executable: in the folder that the environment variable PHONESIM_HOSTS names, else in "simulator/hosts"
// of the build tree that the running program belongs to. Throws HostError, naming the places looked at.
std::filesystem::path programPath(HostKind kind);

// What went wrong: the host did not start, replied {"error": text}, did not reply in time, or has ended. The text is
// complete; after it comes what the host wrote to standard error, and of one that has ended or waited in vain the end
// of its phone's logs. An exception, because its callers are programs and tests that end by it.
class HostError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

struct HostOptions {
    std::filesystem::path root;
    // Starts the host as a phone does on which nothing was installed: no library is injected.
    bool withoutExtension = false;
    // Plays a process of another identifier than the kind's; empty: the kind's own.
    std::string bundleIdentifier;
    // Another program that serves a remote control; empty: the kind's own.
    std::filesystem::path program;
    // Added to (and winning over) this process's environment. A host heeds
    //   PHONESIM_SECOND         how many seconds a second of sleep takes, for waits that a test looks at
    //   PHONESIM_RANDOM         a number that arc4random always returns, for pictures that must come out the same
    //   PHONESIM_NOTIFICATIONS  "watcher": Darwin notifications are delivered on a thread of their own, not on the main
    //   PHONESIM_COUNT_OBJECTS  set: the command "objects" can be asked
    std::vector<std::pair<std::string, std::string>> environment;
    double startTimeoutSeconds = 60;
};

// One running host. Not copyable; use it from one thread at a time. Its process ends with it, if it has not before.
class HostProcess {
  public:
    // Returns once the host has launched (its application object's applicationDidFinishLaunching: has returned).
    // Throws HostError.
    HostProcess(HostKind kind, const HostOptions& options);
    HostProcess(const HostProcess&) = delete;
    HostProcess& operator=(const HostProcess&) = delete;

    // Sends one command and waits for its reply, which never holds "error". Throws HostError. Commands are {"do": name}
    // with these names and further values; where no reply is named it is empty.
    //
    //   show       "screen": recents, missed, favorites, contacts or search; "text" of the search; "editing";
    //              waits up to 2 s for work queued for the screen before;
    //              "nameViews": whether rows of Contacts have a view of their own for the name (true at first)
    //   settle     "timeout" in seconds: waits until no queued work is left
    //   layout     lays out every visible view
    //   reload     has the shown list fetch its rows again
    //   scroll     "row", counted through the whole list, or "offset" in points; returns "offset"
    //   objects    "classes": names; returns "counts", how many objects of each there are, subclasses' not included
    //   rows       "sources": whether to say where pictures come from (true at first), which takes a while;
    //              returns "rows", the visible rows (see row_report.h)
    //   favorites  "sources" as above; returns "buttons", the favourites strip's (see row_report.h)
    //   shot       "out", absolute: writes the window as PNG at the screen's scale; returns "width", "height" in pixels
    //   watch      "out", absolute: keeps the window's picture there up to date from now on, at most once in "interval"
    //              seconds, and reports each new one by an event
    //   toggle     "list": favorites, recents or contacts: taps its button; returns "selected", the buttons that are
    //   monogram   "generator": callbar or system, and "contact": ID, "initials": text or "photo": path on the phone;
    //              returns "picture" (see row_report.h) and "isPersonImage"
    //   expect     "notification": looks at the list when that has been delivered, at the end of the run loop's turn
    //   await      "timeout" in seconds: waits until that has happened; returns what the look found: "rows" and
    //              "buttons" (see row_report.h), and how many "seconds" it was after the delivery
    //   info       returns "bundleIdentifier", the injected "libraries", "windows" (how many), "pendingWork"
    //   quit
    //
    // The Settings app has settle, layout, shot, watch, objects, info and quit like the others, and
    //
    //   show         "screen": settings, the first page, or settings/ENTRY, that of one of its rows
    //   rows         returns "title" and "back" (texts of the bar), "rows" and "alert" (see settings/page_report.h)
    //   flip         "label": flips the switch of that row, as a finger does; returns whether it is "on" then
    //   tap          "label": taps that row
    //   back         taps the bar's button
    //   press        "button": presses that button of the alert in front
    //   scroll       "offset" in points; returns "offset"
    //   synchronize  has the preferences service write what it has not written yet, as it does by itself in the end
    nlohmann::json call(const nlohmann::json& command, double timeoutSeconds = 60);

    // What the host reported by itself since the last call, oldest first; never waits. Throws HostError when it has
    // ended. After watch: {"event": "picture"} when the picture has changed, {"event": "problem", "text": why} when it
    // could not be written.
    std::vector<nlohmann::json> events();
    // Readable (poll) when an event may have come since the last call, and when the host has ended.
    int eventsDescriptor() const { return lines_.input(); }

    // Asks the host to quit and waits for its end; its exit status. Throws HostError when it does not end in time.
    int quit(double timeoutSeconds = 20);

    bool running() { return process_.running(); }
    pid_t pid() const { return process_.pid(); }
    // What the host wrote to standard error before anything in it redirected the stream.
    std::string standardError() const { return process_.standardError(); }

  private:
    class Deadline;
    std::string readLine(const Deadline& deadline, const std::string& waitingFor);
    [[noreturn]] void failWithEnd(const std::string& when);
    [[noreturn]] void fail(const std::string& what);
    [[noreturn]] void failQuotingLogs(const std::string& what) const;

    HostKind kind_;
    std::filesystem::path root_;
    Subprocess process_;
    LineStream lines_;
    std::vector<nlohmann::json> events_;
    long nextId_ = 1;
};

}  // namespace hosts
