// What the phone's address-book databases hold, in plain C++.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace address_book {

enum class Name { first, last, middle, prefix, suffix, nickname, organization };

// One connection per database for the whole process. Any thread. Whatever cannot be read is reported on standard error
// once and treated as if it were not there.
bool personExists(std::int32_t identifier);
std::optional<std::string> name(std::int32_t identifier, Name which);

// IDs of all persons of the same link, in the database's order; empty for a person without link.
std::vector<std::int32_t> linkedPeople(std::int32_t identifier);

// Phone numbers whose last four digits are one of these, each with whose it is, by person.
std::vector<std::pair<std::int32_t, std::string>> phoneNumbersEndingIn(const std::vector<std::string>& lastFour);

bool hasImage(std::int32_t identifier);
std::optional<std::string> thumbnail(std::int32_t identifier, int format);
std::optional<std::string> fullSizeImage(std::int32_t identifier);

}  // namespace address_book
