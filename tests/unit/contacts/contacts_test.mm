#include "tests/unit/contacts/contacts_test.h"

#include <chrono>
#include <filesystem>

namespace test {

namespace fs = std::filesystem;

double now() { return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count(); }

unsigned leftInPool(const std::function<void()>& work) {
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
    work();
    const unsigned count = [pool autoreleaseCount];
    [pool drain];
    return count;
}

maker::AddressBookBuilder ContactsTest::builder() { return maker::AddressBookBuilder::open(root.path()).value(); }

int ContactsTest::add(const maker::Person& person) {
    maker::AddressBookBuilder book = builder();
    const int contact = book.addPerson(person).value();
    EXPECT_EQ(phone::problemOf(book.finish()), "");
    return contact;
}

int ContactsTest::addNamed(std::optional<std::string> first, std::optional<std::string> last) {
    maker::Person person;
    person.first = std::move(first);
    person.last = std::move(last);
    return add(person);
}

void ContactsTest::setThumbnail(int contact, const std::string& bytes) {
    maker::AddressBookBuilder book = builder();
    EXPECT_EQ(phone::problemOf(book.setThumbnail(contact, bytes)), "");
    EXPECT_EQ(phone::problemOf(book.finish()), "");
}

void ContactsTest::removePhoto(int contact) {
    maker::AddressBookBuilder book = builder();
    EXPECT_EQ(phone::problemOf(book.removePhoto(contact)), "");
    EXPECT_EQ(phone::problemOf(book.finish()), "");
}

void ContactsTest::link(const std::vector<int>& contacts) {
    maker::AddressBookBuilder book = builder();
    EXPECT_EQ(phone::problemOf(book.link(contacts)), "");
    EXPECT_EQ(phone::problemOf(book.finish()), "");
}

void ContactsTest::removeSilhouettes() {
    const std::string bundle = root.host("/System/Library/PreferenceBundles/ZelkaCBSettings.bundle");
    int removed = 0;
    for (const char* name : {"user_monogram", "user_monogram_round"})
        for (const char* suffix : {".png", "@2x.png", "@3x.png"}) removed += fs::remove(bundle + "/" + name + suffix);
    EXPECT_EQ(removed, 6);
}

bool ContactsTest::isMonogramOf(NSString* text, UIImage* picture) {
    const phone::Pixel disc = pixel(picture, 40, 3);
    UIColor* color = [UIColor colorWithRed:disc.r / 255.0 green:disc.g / 255.0 blue:disc.b / 255.0 alpha:1];
    UIFont* font = [UIFont systemFontOfSize:17];
    return samePixels(picture, [Utils monogramImage:text size:CGSizeMake(40, 40) color:color font:font]);
}

void ContactsTest::replaceByGarbage(std::string_view database) {
    const fs::path path = root.host(database);
    std::error_code error;
    fs::rename(path, path.string() + ".aside", error);
    EXPECT_FALSE(error) << error.message();
    root.write(database, std::string(4096, 'x'));
}

void ContactsTest::replaceByDirectory(std::string_view database) {
    const fs::path path = root.host(database);
    std::error_code error;
    fs::rename(path, path.string() + ".aside", error);
    EXPECT_FALSE(error) << error.message();
    fs::create_directory(path, error);
    EXPECT_FALSE(error) << error.message();
}

void ContactsTest::restore(std::string_view database) {
    const fs::path path = root.host(database);
    std::error_code error;
    if (fs::is_directory(path, error)) fs::remove(path, error);
    fs::rename(path.string() + ".aside", path, error);
    EXPECT_FALSE(error) << error.message();
}

void ContactsTest::restoreWhenSlept(double seconds, std::string_view database) {
    whenSlept(seconds, [this, database] { restore(database); });
}

}  // namespace test
