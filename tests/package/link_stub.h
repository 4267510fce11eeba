// The text stubs that the phone's binary is linked against.
#pragma once

#include <map>
#include <set>
#include <string>

namespace test {

// Per install name, the symbols that the stubs list for a target such as "arm64-ios".
std::map<std::string, std::set<std::string>> stubSymbols(const std::string& folder, const std::string& target);

}  // namespace test
