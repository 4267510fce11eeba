// The far end of a host program's remote control: starts a host as a process of its own and asks it things.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <nlohmann/json_fwd.hpp>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace hosts {

// The two processes of the phone that show CallBar's lists.
enum class HostKind { springBoard, callBarViewService };

// The program's file name in the build and the bundle identifier that it boots with.
const char* programName(HostKind kind);
const char* bundleIdentifier(HostKind kind);

// The host's executable: in the folder that the environment variable PHONESIM_HOSTS names, else in "simulator/hosts"
// of the build tree that the running program belongs to. Throws HostError, naming the places looked at.
std::filesystem::path programPath(HostKind kind);

// What went wrong: the host did not start, answered {"error": text}, did not answer in time, or has ended. The text
// is complete and ends with what the host wrote to standard error, if anything.
class HostError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

struct HostOptions {
    std::filesystem::path root;
    // Starts the host as a phone does on which nothing was installed: no library is injected.
    bool withoutExtension = false;
    // Added to (and winning over) this process's environment.
    std::vector<std::pair<std::string, std::string>> environment;
    double startTimeoutSeconds = 60;
};

// One running host. Not copyable; use it from one thread at a time. Destruction kills the process if it still runs and
// waits for its end; the host also ends by itself when this process dies.
class HostProcess {
  public:
    // Returns once the host has launched (its application object's applicationDidFinishLaunching: has returned).
    // Throws HostError.
    HostProcess(HostKind kind, const HostOptions& options);
    ~HostProcess();
    HostProcess(const HostProcess&) = delete;
    HostProcess& operator=(const HostProcess&) = delete;

    // Sends one command and waits for its answer, which never holds "error". Throws HostError. The commands:
    //   {"do":"show","screen":"recents|missed|favorites|contacts|search","text":"...","editing":bool} -> {}
    //   {"do":"settle","timeout":seconds}     waits until no queued work is left                       -> {}
    //   {"do":"layout"}                       lays out every visible view                              -> {}
    //   {"do":"reload"}                       reloads the shown list                                   -> {}
    //   {"do":"scroll","row":n | "offset":points}                                                      -> {"offset":y}
    //   {"do":"rows"}        the visible rows (see row_report.h)                                        ->
    //   {"rows":[...]}
    //   {"do":"favorites"}   the favourites strip's buttons                                            ->
    //   {"buttons":[...]}
    //   {"do":"shot","out":"/path.png"}       a picture of the window at the screen's scale        ->
    //   {"width","height"}
    //   {"do":"toggle","list":"favorites|recents|contacts"}   taps the button                          ->
    //   {"selected":[...]}
    //   {"do":"monogram","generator":"callbar|system","contact":id | "initials":text | "photo":path}   ->
    //   {"picture":...}
    //   {"do":"info"}        bundle identifier, injected libraries, screen                             -> {...}
    //   {"do":"quit"}                                                                                  -> {}
    nlohmann::json call(const nlohmann::json& command, double timeoutSeconds = 60);

    // Asks the host to quit and waits for its end; its exit status. Throws HostError when it does not end in time.
    int quit(double timeoutSeconds = 20);

    bool running();
    pid_t pid() const { return pid_; }
    // What the host wrote to standard error before anything in it redirected the stream.
    std::string standardError() const;

  private:
    void spawn(HostKind kind, const HostOptions& options);
    std::string readLine(double timeoutSeconds, const std::string& waitingFor);
    void release();
    [[noreturn]] void fail(const std::string& what) const;

    pid_t pid_ = -1;
    int commands_ = -1;
    int answers_ = -1;
    int standardError_ = -1;
    int exitStatus_ = -1;
    bool ended_ = false;
    std::string unread_;
    std::string name_;
    long nextId_ = 1;
};

}  // namespace hosts
