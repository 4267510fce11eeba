// What verbs that change a phone's contacts and calls share.
#pragma once

#include <filesystem>
#include <string>

#include "simulator/maker/database/database.h"

namespace tool {

// Throws unless all three databases of a phone are sound, before anything is written: a change that fails half-way
// would leave them out of step, and a database that is missing would be made anew, empty, without anybody noticing what
// was lost.
void requireSoundDatabases(const std::filesystem::path& root);

maker::Database openBook(const std::filesystem::path& root);

// The ID of the contact with this ID, name ("First Last") or organization. Throws Problem when it is none's or
// several's.
int findContact(const maker::Database& book, const std::string& wanted);

// Later than every other contact's: the latest date is how other processes find out who changed. Seconds since
// 2001-01-01 UTC.
double nextModificationDate(const maker::Database& book);

// The bytes of a file that holds a picture; nothing without a file's name. Throws Problem for a file that holds none.
std::string readPicture(const std::string& file);

// Posts what the phone posts after such a change.
void postBookChanged(const std::filesystem::path& root);
void postCallsChanged(const std::filesystem::path& root);

}  // namespace tool
