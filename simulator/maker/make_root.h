// Making a phone root: a directory shaped like a phone's file system.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "simulator/maker/common/findings.h"
#include "simulator/maker/common/progress.h"
#include "simulator/maker/common/result.h"
#include "simulator/maker/install/install.h"

namespace maker {

struct RootOptions {
    std::filesystem::path root;
    bool force = false;  // replace an existing root

    // Where the address book comes from: at most one of these three; none makes an empty book.
    std::vector<std::filesystem::path> contacts;  // files of contacts and folders of them (contact_files.h)
    int contactsCount = 0;                        // a generated book of that many contacts
    std::filesystem::path addressBook;            // AddressBook.sqlitedb of a phone

    // The folder of a phone's unencrypted backup (backup.h), in place of all other contacts, calls and the device.
    std::filesystem::path backup;

    std::string charset;  // what bytes of contacts and calls are of which a file says nothing; empty: not known
    std::filesystem::path
        photos;  // a folder outside of that of the contacts from which they may take pictures; or empty

    std::filesystem::path images;  // AddressBookImages.sqlitedb of a phone; only with addressBook
    // call_history.db or CallHistory.storedata of a phone, or a text file of calls (call_file.h). Left out: calls are
    // made up from the book. A database of the kind that this device's system does not keep is rewritten into the
    // other.
    std::filesystem::path calls;
    bool noCalls = false;  // an empty call history when `calls` is left out

    std::string device;        // a profile's name (device_profiles.h); empty: "iphone6-8.4"
    std::string region;        // ISO 3166 country in which numbers without country code are; empty: "US"
    std::string language;      // of the interface, by which names are sorted ("de", "zh-Hant"); empty: "en"
    bool rightToLeft = false;  // the interface's layout direction
    std::string processor;     // what its processes are built for (processor.h); empty: what this program is

    Extension extension;  // what is installed on the phone

    double now = 0;  // seconds since 1970-01-01 UTC that the call history is made for; 0: the present
    std::uint32_t seed = 1;
};

struct RootReport {
    long contacts = 0;
    long pictures = 0;
    long calls = 0;
    Findings findings;  // what was left out or mended, and why
};

// Makes a root. It is built in a temporary directory beside its place and moved there at the end: on failure nothing is
// left behind, and what stood at its place stays as it was. An existing root is replaced only with `force`, anything
// else that exists never (an empty directory excepted).
Result<RootReport> makeRoot(const RootOptions& options, const Progress& progress = {});

// Whether a directory is a phone root: it holds device.plist and the phone's private folder.
bool isRoot(const std::filesystem::path& directory);

}  // namespace maker
