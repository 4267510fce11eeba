#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulator/maker/contacts/contact_files.h"
#include "tests/simulator/maker/workbench.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::string card(const std::string& lines) { return "BEGIN:VCARD\nVERSION:3.0\n" + lines + "END:VCARD\n"; }

class VCardImport : public testing::Test {
  protected:
    maker::Person only(const std::string& vcards) {
        phone::Result<maker::ImportedContacts> imported =
            maker::importContacts({bench.write("c.vcf", vcards)}, importing);
        EXPECT_EQ(phone::problemOf(imported), "");
        if (!imported || imported->persons.size() != 1) {
            ADD_FAILURE() << "not one person";
            return {};
        }
        warnings = maker::sentences(imported->findings, true);
        return imported->persons.front().person;
    }
    std::string failure(const std::string& vcards) {
        return phone::problemOf(maker::importContacts({bench.write("c.vcf", vcards)}, importing));
    }

    test::Workbench bench;
    maker::ImportOptions importing;
    std::vector<std::string> warnings;
};

TEST_F(VCardImport, TakesAllPartsOfAName) {
    maker::Person person = only(card("N:Lee;Ann;Marie;Dr.;Jr.\nNICKNAME:Annie\nORG:Leopard Works;Sales\n"));
    EXPECT_EQ(person.last, "Lee");
    EXPECT_EQ(person.first, "Ann");
    EXPECT_EQ(person.middle, "Marie");
    EXPECT_EQ(person.prefix, "Dr.");
    EXPECT_EQ(person.suffix, "Jr.");
    EXPECT_EQ(person.nickname, "Annie");
    EXPECT_EQ(person.organization, "Leopard Works");
    EXPECT_FALSE(person.isCompany());
}

TEST_F(VCardImport, NamePartsThatAreNotThereAreMissingRatherThanEmpty) {
    maker::Person person = only(card("N:;Ann;;;\n"));
    EXPECT_EQ(person.first, "Ann");
    EXPECT_EQ(person.last, std::nullopt);
}

TEST_F(VCardImport, ACardWithoutNameIsAContactWithoutName) {
    maker::Person person = only(card("TEL:555 0100\n"));
    EXPECT_EQ(person.first, std::nullopt);
    EXPECT_EQ(person.last, std::nullopt);
    EXPECT_EQ(person.displayName(), "555 0100");
}

TEST_F(VCardImport, AnEmptyCardIsAContactWithNothing) { EXPECT_EQ(only(card("")).displayName(), ""); }

TEST_F(VCardImport, AFormattedNameStandsInForMissingParts) {
    maker::Person person = only(card("FN:Ann Lee\n"));
    EXPECT_EQ(person.first, "Ann");
    EXPECT_EQ(person.last, "Lee");
}

TEST_F(VCardImport, AFormattedNameThatIsTheOrganizationMakesACompany) {
    maker::Person person = only(card("FN:Leopard Works\nN:;;;;\nORG:Leopard Works\n"));
    EXPECT_EQ(person.first, std::nullopt);
    EXPECT_TRUE(person.isCompany());
}

TEST_F(VCardImport, DecodesQuotedPrintableInItsCharacterSet) {
    maker::Person person = only(
        "BEGIN:VCARD\r\nVERSION:2.1\r\nN;CHARSET=ISO-8859-1;ENCODING=QUOTED-PRINTABLE:M=FCller;J=F6rg\r\n"
        "NICKNAME;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:J=C3=B6r=\r\ng\r\nEND:VCARD\r\n");
    EXPECT_EQ(person.first, "Jörg");
    EXPECT_EQ(person.last, "Müller");
    EXPECT_EQ(person.nickname, "Jörg");
}

TEST_F(VCardImport, KeepsEmojiCombiningMarksAndRightToLeftText) {
    maker::Person person = only(card("N:\u05DB\u05D4\u05DF;\U0001F98A e\u0301;;;\n"));
    EXPECT_EQ(person.first, "\U0001F98A e\u0301");
    EXPECT_EQ(person.last, "\u05DB\u05D4\u05DF");
}

TEST_F(VCardImport, KeepsANameOfTenThousandCharacters) {
    std::string name(10000, 'x');
    EXPECT_EQ(only(card("N:;" + name + ";;;\n")).first, name);
}

TEST_F(VCardImport, UnfoldsLinesAndUnescapesText) {
    EXPECT_EQ(only(card("N:O\\, Neill\\;x;Sio\n bhan;;;\n")).first, "Siobhan");
    EXPECT_EQ(only(card("N:O\\, Neill\\;x;;;;\n")).last, "O, Neill;x");
}

TEST_F(VCardImport, BytesThatAreNotUtf8AreReplacedAndTold) {
    EXPECT_EQ(only(card("N:;J\xF6rg;;;\n")).first, "J\uFFFDrg");
    EXPECT_THAT(warnings, ElementsAre(HasSubstr("UTF-8")));
}

TEST_F(VCardImport, LabelsNumbersAndAddressesByTypeOrByName) {
    maker::Person person = only(
        card("TEL;TYPE=CELL,VOICE:1\nTEL;HOME;FAX:2\nTEL;TYPE=\"iPhone,cell\":3\nitem1.TEL:4\nitem1.X-ABLabel:Boat\n"
             "TEL:5\nTEL;VALUE=uri;TYPE=work:tel:+1-555;ext=7\nEMAIL;TYPE=HOME:mailto:a@b.c\n"));
    std::vector<std::string> phones;
    for (const maker::LabelledValue& value : person.phones) phones.push_back(value.label + " " + value.value);
    EXPECT_THAT(phones, ElementsAre("_$!<Mobile>!$_ 1", "_$!<HomeFAX>!$_ 2", "iPhone 3", "Boat 4", " 5",
                                    "_$!<Work>!$_ +1-555;ext=7"));
    ASSERT_EQ(person.emails.size(), 1u);
    EXPECT_EQ(person.emails[0].value, "a@b.c");
    EXPECT_EQ(person.emails[0].label, "_$!<Home>!$_");
}

TEST_F(VCardImport, TakesEmbeddedPhotosOfEveryVersion) {
    std::string photo = test::picture(4, 4, 0xFF0000);
    std::string text = test::base64(photo);
    EXPECT_EQ(only(card("N:;A;;;\nPHOTO;ENCODING=b;TYPE=PNG:" + text + "\n")).photo, photo);
    EXPECT_EQ(only(card("N:;A;;;\nPHOTO;PNG;BASE64:\n " + text + "\n\n")).photo, photo);
    EXPECT_EQ(only(card("N:;A;;;\nPHOTO:data:image/png;base64," + text + "\n")).photo, photo);
}

TEST_F(VCardImport, TakesPhotosFromFilesBesideTheCards) {
    std::string photo = test::picture(4, 4, 0xFF0000);
    std::string absolute = bench.write("my faces/a,b.png", photo);
    EXPECT_EQ(only(card("PHOTO;VALUE=uri:file:my%20faces/a,b.png\n")).photo, photo);
    EXPECT_EQ(only(card("PHOTO;VALUE=uri:my%20faces/a,b.png\n")).photo, photo);
    EXPECT_EQ(only(card("PHOTO;VALUE=uri:file://" + absolute + "\n")).photo, photo);
    EXPECT_EQ(only(card("PHOTO;VALUE=uri:file://localhost" + absolute + "\n")).photo, photo);
    EXPECT_THAT(warnings, IsEmpty());
}

TEST_F(VCardImport, PhotosThatCannotBeHadAreToldWithTheContactsName) {
    for (const char* photo : {"PHOTO;VALUE=uri:file:gone.png\n", "PHOTO;VALUE=uri:https://example.com/a.png\n",
                              "PHOTO;ENCODING=b:\n", "PHOTO:data:image/png,abc\n"}) {
        EXPECT_EQ(only(card(std::string("N:Lee;Ann;;;\n") + photo)).photo, "") << photo;
        EXPECT_THAT(warnings, ElementsAre(HasSubstr("c.vcf, line 1: Ann Lee goes without photo"))) << photo;
    }
}

TEST_F(VCardImport, RefusesFilesThatAreNoCards) {
    EXPECT_THAT(failure(""), HasSubstr("there is no vCard"));
    EXPECT_THAT(failure(test::picture(4, 4, 0)), HasSubstr("there is no vCard"));
    EXPECT_THAT(failure(card("N:;A;;;\n") + "BEGIN:VCARD\nN:;B"), HasSubstr("line 5: BEGIN:VCARD without END:VCARD"));
    EXPECT_THAT(failure("BEGIN:VCARD\n" + card("")), HasSubstr("line 1: BEGIN:VCARD without END:VCARD"));
    EXPECT_THAT(phone::problemOf(maker::importContacts({bench.path() / "gone.vcf"}, {})),
                HasSubstr("gone.vcf: No such file"));
    EXPECT_THAT(phone::problemOf(maker::importContacts({bench.path() / "none"}, {})), HasSubstr("none: No such file"));
}

TEST_F(VCardImport, ReadsCardsWithByteOrderMarkAndWindowsLineEnds) {
    EXPECT_EQ(only("\xEF\xBB\xBF"
                   "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Lee;Ann;;;\r\nEND:VCARD\r\n")
                  .last,
              "Lee");
}

TEST_F(VCardImport, LinkedCardsBecomeOnePerson) {
    bench.makeFrom(card("N:;A;;;\n") + card("N:;B;;;\nX-LINKED-PERSON:mei\n") +
                   card("N:;C;;;\nX-LINKED-PERSON:solo\n") + card("N:;D;;;\nX-LINKED-PERSON:mei\n") +
                   card("N:;E;;;\nX-LINKED-PERSON:mei\n"));
    EXPECT_THAT(test::queryBook(bench.root(), "SELECT First, PersonLink, IsPreferredName FROM ABPerson ORDER BY ROWID"),
                ElementsAre("A", "-1", "1", "B", "1", "1", "C", "-1", "1", "D", "1", "0", "E", "1", "0"));
    EXPECT_THAT(
        test::queryBook(bench.root(), "SELECT ROWID, PreferredImagePersonID, PreferredNamePersonID FROM ABPersonLink"),
        ElementsAre("1", "2", "2"));
}

TEST_F(VCardImport, AnUndecodablePhotoLeavesTheContactWithoutPicture) {
    maker::RootReport report =
        bench.makeFrom(card("N:Lee;Ann;;;\nPHOTO;ENCODING=b:" + test::base64("not a picture") + "\n"));
    EXPECT_EQ(report.contacts, 1);
    EXPECT_EQ(report.pictures, 0);
    EXPECT_THAT(maker::sentences(report.findings, true),
                ElementsAre(HasSubstr("Ann Lee goes without photo: not a picture")));
    EXPECT_THAT(test::queryImages(bench.root(), "SELECT * FROM ABFullSizeImage"), IsEmpty());
}

}  // namespace
