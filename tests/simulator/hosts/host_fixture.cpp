#include "tests/simulator/hosts/host_fixture.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>

#include "simulator/maker/make_root.h"

namespace {

// A 2 x 2 picture of one orange.
constexpr const char* kOrangePng =
    "iVBORw0KGgoAAAANSUhEUgAAAAIAAAACCAIAAAD91JpzAAAAEElEQVR4nGP40CQCRAwQCgAuJgYZa/HsWQAAAABJRU5ErkJggg==";

std::string card(const std::string& lines) { return "BEGIN:VCARD\r\nVERSION:3.0\r\n" + lines + "END:VCARD\r\n"; }

std::string contacts() {
    const std::string photo = std::string("PHOTO;ENCODING=b;TYPE=PNG:") + kOrangePng + "\r\n";
    return card("N:Lee;Ann;;;\r\nFN:Ann Lee\r\nTEL;TYPE=CELL:+1 212 555 0142\r\n" + photo) +
           card("N:Stone;Bob;;;\r\nFN:Bob Stone\r\nTEL;TYPE=HOME:(917) 555-0186\r\n") +
           card("N:;Cara;;;\r\nFN:Cara\r\nEMAIL:cara@example.com\r\n") +
           card("N:;;;;\r\nORG:Acme Pumps\r\nFN:Acme Pumps\r\nTEL;TYPE=WORK:718-555-0110\r\n") +
           card("N:;;;;\r\nFN:\r\nTEL;TYPE=CELL:305 555 0164\r\n") +
           card("N:Twin;Tom;;;\r\nFN:Tom Twin\r\nX-LINKED-PERSON:tom\r\nTEL:206 555 0114\r\n") +
           card("N:Twin;Tom;;;\r\nFN:Tom Twin\r\nX-LINKED-PERSON:tom\r\n" + photo);
}

// ROWIDs count from the oldest call, which is the last line.
constexpr const char* kCalls =
    "2015-06-09 12:00, +1 212 555 0142, missed\n"
    "2015-06-09 11:00, +1 212 555 0142, missed\n"
    "2015-06-09 10:00, +1 212 555 0142, incoming, 30\n"
    "2015-06-08 10:00, (917) 555-0186, outgoing, 60\n"
    "2015-06-07 10:00, +1 646 555 0199, missed\n"
    "2015-06-06 10:00, cara@example.com, incoming, 5\n"
    "2015-06-05 10:00, 718-555-0110, outgoing, 12\n"
    "2015-06-04 10:00, 305 555 0164, missed\n"
    "2015-06-03 10:00, 206 555 0114, incoming, 9\n";

void write(const std::filesystem::path& file, const std::string& text) {
    std::ofstream(file, std::ios::binary) << text;
}

}  // namespace

HostTest::HostTest() {
    std::string name = (std::filesystem::temp_directory_path() / "zelka-host-XXXXXX").string();
    folder_ = ::mkdtemp(name.data());
    root_ = folder_ / "phone";
}

HostTest::~HostTest() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

void HostTest::makePhone(const std::string& device, bool rightToLeft) {
    write(folder_ / "contacts.vcf", contacts());
    write(folder_ / "contacts.calls.csv", kCalls);
    maker::RootOptions made;
    made.root = root_;
    made.contacts = {folder_ / "contacts.vcf"};
    made.calls = folder_ / "contacts.calls.csv";
    made.device = device;
    made.rightToLeft = rightToLeft;
    const auto report = maker::makeRoot(made);
    ASSERT_TRUE(report) << phone::problemOf(report);
}

void HostTest::writeFavorites(const std::string& propertyList) const {
    write(root_ / "private/var/mobile/Library/Preferences/com.apple.mobilephone.speeddial.plist", propertyList);
}

hosts::HostOptions HostTest::options() const {
    hosts::HostOptions options;
    options.root = root_;
    options.withoutExtension = true;
    return options;
}

HostTest::Json HostTest::rowsOf(hosts::HostProcess& host, const std::string& screen, bool editing) const {
    host.call({{"do", "show"}, {"screen", screen}, {"editing", editing}});
    host.call({{"do", "settle"}, {"timeout", 10}});
    return host.call({{"do", "rows"}}).at("rows");
}

std::string HostTest::errorOf(hosts::HostProcess& host, const Json& command) const {
    try {
        host.call(command);
    } catch (const hosts::HostError& error) {
        return error.what();
    }
    ADD_FAILURE() << command << " was no error";
    return {};
}
