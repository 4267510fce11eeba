// phonesim running beside the test.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

class BackgroundTool {
  public:
    // Starts it in a folder; what it prints is kept in files there.
    BackgroundTool(std::filesystem::path folder, const std::vector<std::string>& arguments);
    // Kills it if it still runs.
    ~BackgroundTool();
    BackgroundTool(const BackgroundTool&) = delete;
    BackgroundTool& operator=(const BackgroundTool&) = delete;

    std::string out() const;
    std::string err() const;
    // How often a text is in what it printed on standard output.
    int count(const std::string& text) const;
    // Waits until that is more than `before`; false when that takes too long or the tool ends.
    bool waitFor(const std::string& text, int before = 0);
    pid_t pid() const { return pid_; }
    // The processes that it started and that still run.
    std::vector<pid_t> children() const;

    // Sends a signal (0: none) and waits for its end; the status as waitpid() tells it, -1 when it does not end.
    int end(int signal);

  private:
    bool ended();

    std::filesystem::path folder_;
    pid_t pid_;
    int status_ = -1;
    bool ended_ = false;
};
