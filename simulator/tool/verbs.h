// The verbs of phonesim. Each adds itself to the command line; what it does runs after parsing and ends with an exit
// status. What goes wrong is thrown, as Problem or by a failure's value(), and printed by main().
#pragma once

#include <CLI/CLI.hpp>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>

namespace tool {

// A sentence for the user, complete.
class Problem : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

void addNew(CLI::App& app);
void addList(CLI::App& app);
void addInfo(CLI::App& app);
void addShot(CLI::App& app);
void addRun(CLI::App& app);
void addLog(CLI::App& app);
void addGet(CLI::App& app);
void addSet(CLI::App& app);
void addNotify(CLI::App& app);
void addAdd(CLI::App& app);
void addEdit(CLI::App& app);
void addFavorite(CLI::App& app);
void addCall(CLI::App& app);
void addInstall(CLI::App& app);
void addClone(CLI::App& app);
void addDelete(CLI::App& app);
// Adds the verb that stands for --help of another, which is there already.
void addHelp(CLI::App& app);

// Throws unless the directory is a phone root.
void requireRoot(const std::string& root);
// Throws unless it is a file.
void requireFile(const std::filesystem::path& file);

}  // namespace tool
