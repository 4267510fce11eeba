// Several files of contacts, folders of them, and the pictures that they name.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/simulator/maker/dialects.h"
#include "tests/simulator/maker/workbench.h"

namespace {

using test::gzipped;
using testing::HasSubstr;

std::string card(const std::string& lines) { return "BEGIN:VCARD\nVERSION:3.0\n" + lines + "END:VCARD\n"; }

class ContactFiles : public testing::Test {
  protected:
    phone::Result<maker::RootReport> make(const std::vector<std::filesystem::path>& contacts) {
        maker::RootOptions options;
        options.root = bench.root();
        options.noCalls = true;
        options.contacts = contacts;
        options.photos = photos;
        return maker::makeRoot(options);
    }

    test::Workbench bench;
    std::filesystem::path photos;
};

TEST_F(ContactFiles, OfAFolderAreReadInTheOrderOfTheirNamesAndOthersAreNot) {
    bench.write("book/b.vcf", card("N:;B;;;\n"));
    bench.write("book/a.CSV", "Name,Phone\nA,1\n");
    bench.write("book/deeper/c.ldif.gz", gzipped("dn: cn=x\ngivenName: C\n"));
    bench.write("book/readme.txt", "not a contact");
    const auto single = bench.write("d.vcf", card("N:;D;;;\n"));
    ASSERT_EQ(phone::problemOf(make({bench.path() / "book", single})), "");
    EXPECT_THAT(test::queryBook(bench.root(), "SELECT First FROM ABPerson ORDER BY ROWID"),
                testing::ElementsAre("A", "B", "C", "D"));
}

TEST_F(ContactFiles, OfAFolderWithoutAnyAreAMistake) {
    bench.write("book/readme.txt", "not a contact");
    EXPECT_THAT(phone::problemOf(make({bench.path() / "book"})),
                HasSubstr("book: there is no file of contacts in this"));
}

TEST_F(ContactFiles, TakePicturesFromAFolderThatIsAllowedAndFollowNoLinkOutOfIt) {
    const std::string picture = test::picture(4, 4, 0xFF0000);
    const std::string face = bench.write("faces/a.png", picture);
    bench.write("elsewhere/b.png", picture);
    std::filesystem::create_symlink(bench.path() / "elsewhere/b.png", bench.path() / "faces/b.png");
    const auto file = bench.write("book/c.vcf", card("N:;A;;;\nPHOTO;VALUE=uri:file://" + face + "\n") +
                                                    card("N:;B;;;\nPHOTO;VALUE=uri:../faces/b.png\n"));
    photos = bench.path() / "faces";
    const auto report = make({file});
    ASSERT_EQ(phone::problemOf(report), "");
    EXPECT_THAT(test::queryImages(bench.root(), "SELECT record_id FROM ABThumbnailImage"), testing::ElementsAre("1"));
    EXPECT_THAT(maker::sentences(report->findings, false),
                testing::ElementsAre(HasSubstr("../faces/b.png is outside")));
}

TEST_F(ContactFiles, OfOneKindOfTroubleAreToldInOneSentence) {
    std::string cards;
    for (int i = 0; i < 5; ++i) cards += card("N:;A" + std::to_string(i) + ";;;\nPHOTO;VALUE=uri:gone.png\n");
    const auto report = make({bench.write("c.vcf", cards)});
    ASSERT_EQ(phone::problemOf(report), "");
    EXPECT_THAT(maker::sentences(report->findings, false),
                testing::ElementsAre(testing::AllOf(HasSubstr("c.vcf, line 1: A0 goes without photo"),
                                                    HasSubstr("; and 4 more like it (--verbose lists them)"))));
    EXPECT_EQ(maker::sentences(report->findings, true).size(), 5u);
}

}  // namespace
