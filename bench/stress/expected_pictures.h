// What a row must show when every switch is on, read from the phone's databases.
#pragma once

#include <filesystem>
#include <map>
#include <nlohmann/json_fwd.hpp>
#include <set>
#include <string>

namespace stress {

class ExpectedPictures {
  public:
    // Reads the databases of the root. Throws std::runtime_error when they cannot be read.
    explicit ExpectedPictures(const std::filesystem::path& root);

    // What is wrong with the picture of a row as a host reports it (row_report.h); empty when nothing is.
    std::string problemOf(const nlohmann::json& row) const;

  private:
    // Whose photo the contact shows, 0 for nobody's.
    int photoOf(int contact) const;

    std::set<int> photos_;                 // contacts with a thumbnail of their own
    std::map<int, std::set<int>> linked_;  // contact -> all of the same person, itself included
};

}  // namespace stress
