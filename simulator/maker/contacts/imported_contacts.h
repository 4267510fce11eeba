// What files of contacts give, whatever their format.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "simulator/maker/common/findings.h"
#include "simulator/maker/contacts/contact.h"

namespace maker {

struct ImportOptions {
    std::string charset;           // of bytes of which the file itself says nothing; empty: not known
    std::filesystem::path photos;  // a folder from which pictures may be taken, besides that of the file; or empty
};

struct ImportedPerson {
    Person person;  // the photo is not decoded yet
    std::string file;
    int line = 0;  // where it begins there
};

struct ImportedContacts {
    std::vector<ImportedPerson> persons;  // in the order of the files
    Findings findings;                    // what could not be taken over
};

}  // namespace maker
