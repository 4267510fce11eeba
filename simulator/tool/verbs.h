// The verbs of phonesim. Each adds itself to the command line; what it does runs after parsing and ends with an exit
// status. What goes wrong is thrown as Problem (or std::exception) and told by main().
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <stdexcept>
#include <string>

#include "simulator/maker/result.h"

namespace tool {

// A sentence for the user, complete.
class Problem : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

void addNew(CLI::App& app);
void addShot(CLI::App& app);
void addRun(CLI::App& app);
void addLog(CLI::App& app);
void addSet(CLI::App& app);
void addNotify(CLI::App& app);
void addEdit(CLI::App& app);

// Throws unless the directory is a phone root.
void requireRoot(const std::string& root);

// The value, or the failure thrown.
template <class T>
T orThrow(phone::Result<T> result) {
    if (!result) throw Problem(result.text());
    return std::move(*result);
}

}  // namespace tool
