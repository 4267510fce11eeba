// The files that people hand to the tools: contacts, calls, and what a phone is.

#import <Foundation/Foundation.h>

#include <system_error>

#include "fuzz/phone/target.h"
#include "simulator/maker/calls/call_file.h"
#include "simulator/maker/contacts/vcard_import.h"
#include "simulator/runtime/process/device.h"

namespace fuzz {

void vcards(Bytes input) {
    root().write("/tmp/contacts.vcf", text(input));
    phone::Result<phone::ImportedContacts> contacts = phone::importVCards(root().host("/tmp/contacts.vcf"));
    if (!contacts) {
        if (contacts.text().empty()) fail("a failure that does not say why");
        return;
    }
    if (contacts->persons.empty()) fail("neither contacts nor a failure");
    for (const phone::Person& person : contacts->persons) (void)person.displayName();
}

void calls(Bytes input) {
    root().write("/tmp/calls.csv", text(input));
    phone::Result<std::vector<phone::WrittenCall>> calls = phone::readCallFile(root().host("/tmp/calls.csv"), 1e9);
    if (!calls) {
        if (calls.text().empty()) fail("a failure that does not say why");
        return;
    }
    for (const phone::WrittenCall& call : *calls) {
        if (call.call.duration < 0) fail("a call that cannot be");
    }
}

static std::filesystem::path deviceFolder() { return root().path() / "other"; }

// What is read after the device was written.
static phone::Device rewritten(const phone::Device& device) {
    phone::Device again;
    if (!phone::writeDevice(deviceFolder(), device).empty() || !phone::readDevice(deviceFolder(), again).empty())
        fail("what was read cannot be written and read again");
    return again;
}

void device(Bytes input) {
    const std::filesystem::path folder = deviceFolder();
    root().write("/other/device.plist", text(input));
    phone::Device read;
    if (!phone::readDevice(folder, read).empty()) {
        if (!(read == phone::Device())) fail("half a device was read");
        return;
    }
    if (!(read.scale >= 0.5 && read.scale <= 8 && read.width >= 1 && read.orientation >= 1 && read.orientation <= 4))
        fail("a device that cannot be");
    // Numbers are written with fifteen digits; what they have become then stays.
    if (!(rewritten(rewritten(read)) == rewritten(read)))
        fail("what was written is not what is read and written again");
}

}  // namespace fuzz
