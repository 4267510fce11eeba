// The files that people hand to the tools: contacts, calls, and what a phone is.

#import <Foundation/Foundation.h>

#include <system_error>

#include "fuzz/phone/target.h"
#include "simulator/maker/calls/call_file.h"
#include "simulator/maker/contacts/contact_files.h"
#include "simulator/runtime/process/device.h"

namespace fuzz {

void vcards(Bytes input) {
    root().write("/tmp/contacts.vcf", text(input));
    phone::Result<maker::ImportedContacts> contacts = maker::importContacts({root().host("/tmp/contacts.vcf")}, {});
    if (!contacts) {
        if (phone::problemOf(contacts).empty()) fail("a failure that does not say why");
        return;
    }
    if (contacts->persons.empty() && contacts->findings.empty()) fail("neither contacts nor a failure");
    for (const maker::ImportedPerson& found : contacts->persons) (void)found.person.displayName();
}

void calls(Bytes input) {
    root().write("/tmp/calls.csv", text(input));
    maker::Findings findings;
    const phone::Result<std::vector<maker::WrittenCall>> calls =
        maker::readCallFile(root().host("/tmp/calls.csv"), {1e9, {}}, findings);
    if (!calls) {
        if (phone::problemOf(calls).empty()) fail("a failure that does not say why");
        return;
    }
    for (const maker::WrittenCall& call : *calls) {
        if (call.call.duration < 0) fail("a call that cannot be");
    }
}

static std::filesystem::path deviceFolder() { return root().path() / "other"; }

// What is read after the device was written.
static phone::Device rewritten(const phone::Device& device) {
    const phone::Result<phone::Device> reread =
        phone::writeDevice(deviceFolder(), device).and_then([] { return phone::readDevice(deviceFolder()); });
    if (!reread) fail("what was read cannot be written and read again");
    return *reread;
}

void device(Bytes input) {
    const std::filesystem::path folder = deviceFolder();
    root().write("/other/device.plist", text(input));
    const phone::Result<phone::Device> read = phone::readDevice(folder);
    if (!read) {
        if (read.error().message.empty()) fail("a failure that does not say why");
        return;
    }
    if (!(read->scale >= 0.5 && read->scale <= 8 && read->width >= 1 && read->orientation >= 1 &&
          read->orientation <= 4))
        fail("a device that cannot be");
    // Numbers are written with fifteen digits; what they have become then stays.
    if (!(rewritten(rewritten(*read)) == rewritten(*read)))
        fail("what was written is not what is read and written again");
}

}  // namespace fuzz
