// Address books as common programs export them, each of which comes in whole or is refused with file, line and reason.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/simulator/maker/dialects.h"
#include "tests/simulator/maker/workbench.h"

namespace {

using test::base64;
using test::Dialect;
using test::encoded;
using test::folded;
using test::gzipped;
using test::quotedPrintable;
using test::withLineEnds;
using testing::HasSubstr;

std::string card(const std::string& lines, const char* version = "3.0") {
    return std::string("BEGIN:VCARD\nVERSION:") + version + "\n" + lines + "END:VCARD\n";
}
std::string card21(const std::string& lines) { return card(lines, "2.1"); }

std::string named(const char* charset, const std::string& last, const std::string& first) {
    return card21(std::string("N;CHARSET=") + charset + ":" + encoded(last + ";" + first, charset) + "\nTEL:1\n");
}
std::string namedQuoted(const char* charset, const std::string& last, const std::string& first) {
    return card21(std::string("N;ENCODING=QUOTED-PRINTABLE;CHARSET=") + charset + ":" +
                  quotedPrintable(encoded(last, charset)) + ";" + quotedPrintable(encoded(first, charset)) +
                  "\nTEL:1\n");
}

std::string jpeg() { return test::picture(64, 64, 0x3060C0, "jpeg"); }
std::string png() { return test::picture(64, 64, 0x3060C0); }

const std::string kMueller = card("N:Müller;Jörg;;;\nTEL:1\n");
const std::vector<std::string> kHasMueller = {"Jörg Müller 1"};

std::vector<Dialect> vcards() {
    return {
        {"cp1252.vcf", named("WINDOWS-1252", "Müller", "Jörg €"), {"Jörg € Müller 1"}, {}, {}},
        {"iso8859_1.vcf", named("ISO-8859-1", "Müller", "Jörg"), kHasMueller, {}, {}},
        {"iso8859_1_really_cp1252.vcf",
         card21("N;CHARSET=ISO-8859-1:O\x92Hara;Ann\nTEL:1\n"),
         {"Ann O’Hara 1"},
         {},
         {}},
        {"iso8859_2.vcf", named("ISO-8859-2", "Łężół", "Michał"), {"Michał Łężół 1"}, {}, {}},
        {"iso8859_5.vcf", named("ISO-8859-5", "Иванов", "Пётр"), {"Пётр Иванов 1"}, {}, {}},
        {"iso8859_7.vcf", named("ISO-8859-7", "Παπάς", "Νίκος"), {"Νίκος Παπάς 1"}, {}, {}},
        {"iso8859_9.vcf", named("ISO-8859-9", "Yıldız", "Şule"), {"Şule Yıldız 1"}, {}, {}},
        {"iso8859_15_quoted.vcf", namedQuoted("ISO-8859-15", "Œuvre", "Zoë"), {"Zoë Œuvre 1"}, {}, {}},
        {"cp1250.vcf", named("WINDOWS-1250", "Dvořák", "Jiří"), {"Jiří Dvořák 1"}, {}, {}},
        {"cp1251.vcf", named("WINDOWS-1251", "Иванов", "Пётр"), {"Пётр Иванов 1"}, {}, {}},
        {"cp1255.vcf", named("WINDOWS-1255", "כהן", "דנה"), {"דנה כהן 1"}, {}, {}},
        {"cp1256.vcf", named("WINDOWS-1256", "علي", "سارة"), {"سارة علي 1"}, {}, {}},
        {"koi8r.vcf", named("KOI8-R", "Иванов", "Пётр"), {"Пётр Иванов 1"}, {}, {}},
        {"koi8r_quoted.vcf", namedQuoted("KOI8-R", "Иванов", "Пётр"), {"Пётр Иванов 1"}, {}, {}},
        // The second bytes of these characters are a backslash.
        {"shift_jis.vcf", named("SHIFT_JIS", "表", "ソニー"), {"ソニー 表 1"}, {}, {}},
        {"shift_jis_quoted.vcf", namedQuoted("SHIFT_JIS", "表", "ソニー"), {"ソニー 表 1"}, {}, {}},
        {"euc_jp.vcf", named("EUC-JP", "山田", "太郎"), {"太郎 山田 1"}, {}, {}},
        // Seven bits, and among them the sign that parts a name.
        {"iso2022_jp.vcf", named("ISO-2022-JP", "山田", "紙子"), {"紙子 山田 1"}, {}, {}},
        {"gb2312.vcf", named("GB2312", "王", "小明"), {"小明 王 1"}, {}, {}},
        {"big5.vcf", named("BIG5", "許", "功蓋"), {"功蓋 許 1"}, {}, {}},
        {"euc_kr.vcf", named("EUC-KR", "김", "민준"), {"민준 김 1"}, {}, {}},
        {"tis620.vcf", named("TIS-620", "สมิท", "มาลี"), {"มาลี สมิท 1"}, {}, {}},
        {"utf16le_mark.vcf", "\xFF\xFE" + encoded(kMueller, "UTF-16LE"), kHasMueller, {}, {}},
        {"utf16be_mark.vcf", "\xFE\xFF" + encoded(kMueller, "UTF-16BE"), kHasMueller, {}, {}},
        {"utf16le.vcf", encoded(kMueller, "UTF-16LE"), kHasMueller, {}, {}},
        {"utf16be.vcf", encoded(kMueller, "UTF-16BE"), kHasMueller, {}, {}},
        {"utf16le_crlf.vcf", encoded(withLineEnds(kMueller, "\r\n"), "UTF-16LE"), kHasMueller, {}, {}},
        {"utf16_half_pair.vcf",
         "\xFF\xFE" + encoded("BEGIN:VCARD\nN:;", "UTF-16LE") + std::string("\x3D\xD8", 2) +
             encoded(";;;\nTEL:1\nEND:VCARD\n", "UTF-16LE"),
         {"\uFFFD - 1"},
         {"utf16_half_pair.vcf, line 2: 1 place from here on is not sound UTF-16LE"},
         {}},
        {"utf32.vcf", std::string("\xFF\xFE\0\0", 4) + encoded(kMueller, "UTF-32LE"), kHasMueller, {}, {}},
        {"utf8_mark_crlf.vcf", "\xEF\xBB\xBF" + withLineEnds(kMueller, "\r\n"), kHasMueller, {}, {}},
        {"joined.vcf",
         "\xEF\xBB\xBF" + kMueller + "\xEF\xBB\xBF" + card("N:;Bo;;;\n"),
         {"Jörg Müller 1", "Bo -"},
         {},
         {}},
        {"cr.vcf", withLineEnds(kMueller, "\r"), kHasMueller, {}, {}},
        {"packed.vcf.gz", gzipped(kMueller), kHasMueller, {}, {}},
        {"packed_twice.vcf.gz", gzipped(kMueller) + gzipped(card("N:;Bo;;;\n")), {"Jörg Müller 1", "Bo -"}, {}, {}},
        {"unnamed_charset.vcf",
         card("N:Lee;Ann;;;\n") + card("N:M\xFCller;J\xF6rg;;;\n"),
         {"Ann Lee", "J\uFFFDrg M\uFFFDller"},
         {"unnamed_charset.vcf, line 7: it is not UTF-8, and nothing says what else; --charset NAME does"},
         {}},
        {"told_charset.vcf", card("N:M\xFCller;J\xF6rg;;;\nTEL:1\n"), kHasMueller, {}, "windows-1252"},
        {"unknown_charset.vcf",
         card21("N;CHARSET=X-ROMAN-9:Lee;Ann\n"),
         {"Ann Lee"},
         {"line 3: the character set \"X-ROMAN-9\" is not known; it is read as UTF-8"},
         {}},
        {"wrong_charset.vcf",
         card21("N;CHARSET=UTF-8:M\xFCller;Ann\n"),
         {"Ann M\uFFFDller"},
         {"line 3: 1 character here is not UTF-8 and became U+FFFD"},
         {}},
        {"folded_in_a_letter.vcf", card("N:M\xC3\n \xBCller;J\xC3\n\t\xB6rg;;;\nTEL:1\n"), kHasMueller, {}, {}},
        {"quoted_long.vcf",
         card21("N;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=4D=C3=BC=\n=6C=6C=65=72;=\nJ=C3=B6rg\nTEL:1\n"),
         kHasMueller,
         {},
         {}},
        {"quoted_semicolon.vcf",
         card21("N;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:Lee=3BX;Ann=0D=0ABo\nTEL:1\n"),
         {"Ann\nBo Lee;X 1"},
         {},
         {}},
        {"android_custom_type.vcf",
         card21("N:Lee;Ann;;;\nTEL;X-CUSTOM(CHARSET=UTF-8,ENCODING=QUOTED-PRINTABLE,=42=C3=BC=72=6F):1\nTEL;CELL:2\n"
                "PHOTO;ENCODING=BASE64;JPEG:" +
                folded(base64(jpeg()), " ") + "\n\n"),
         {"Ann Lee 1(Büro) 2(_$!<Mobile>!$_) photo"},
         {},
         {}},
        {"android_custom_type_folded.vcf",
         card21("N:Lee;Ann;;;\nTEL;X-CUSTOM(CHARSET=UTF-8,ENCODING=QUOTED-PRINTABLE,=\n=E5=AE=\n=B6):1\n"),
         {"Ann Lee 1(家)"},
         {},
         {}},
        {"android_custom_type_plain.vcf", card21("N:Lee;Ann;;;\nTEL;X-CUSTOM(Boat):1\n"), {"Ann Lee 1(Boat)"}, {}, {}},
        {"android_custom_type_letters.vcf", card21("N:Lee;Ann;;;\nTEL;X-Boat:1\n"), {"Ann Lee 1(Boat)"}, {}, {}},
        {"odd_parameters.vcf",
         card21("N:Lee;Ann;;;\nTEL;work+fax:1\nTEL;a b=c:2\nEMAIL:a@b.c\n"),
         {"Ann Lee 1 2 a@b.c"},
         {"odd_parameters.vcf, line 5: the parameter \"a b=c\" cannot be read and is left out"},
         {}},
        {"group4.vcf",
         card("KIND:group\nFN:Friends\nMEMBER:urn:uuid:1\n", "4.0") + card("FN:Ann Lee\n", "4.0"),
         {"Ann Lee"},
         {"group4.vcf, line 1: this is a group, not a contact, and is left out"},
         {}},
        {"group3.vcf",
         card("N:Friends\nFN:Friends\nX-ADDRESSBOOKSERVER-KIND:group\n") + card("N:Lee;Ann;;;\n"),
         {"Ann Lee"},
         {"line 1: this is a group"},
         {}},
        {"photo_unindented.vcf",
         card21("N:Lee;Ann;;;\nPHOTO;ENCODING=BASE64;TYPE=JPEG:\n" + folded(base64(jpeg()), "") + "\n\nTEL:1\n"),
         {"Ann Lee 1 photo"},
         {},
         {}},
        {"photo_cut_jpeg.vcf",
         card("N:Lee;Ann;;;\nPHOTO;ENCODING=b;TYPE=JPEG:" + base64(jpeg().substr(0, jpeg().size() - 20)) + "\n"),
         {"Ann Lee"},
         {"photo_cut_jpeg.vcf, line 1: Ann Lee goes without photo: not a picture: it is cut short"},
         {}},
        {"photo_cut_png.vcf",
         card("N:Lee;Ann;;;\nPHOTO;ENCODING=b;TYPE=PNG:" + base64(png().substr(0, png().size() - 20)) + "\n"),
         {"Ann Lee"},
         {"Ann Lee goes without photo: not a picture: it is cut short"},
         {}},
        {"photo_outside.vcf",
         card("N:Lee;Ann;;;\nPHOTO;VALUE=uri:file:///etc/hostname\n") + card("N:Lee;Bo;;;\nPHOTO:../x.png\n"),
         {"Ann Lee", "Bo Lee"},
         {"/etc/hostname is outside of the folder that the contacts are in; --photos FOLDER allows another",
          "../x.png is outside"},
         {}},
        {"lines_without_sense.vcf", card("N:Lee;Ann;;;\nTEL;;:1\n;;\nNOTE\n"), {"Ann Lee 1"}, {}, {}},
        {"between.vcf",
         "Address book\n" + kMueller,
         kHasMueller,
         {"between.vcf, line 1: this line stands in no vCard and is left out"},
         {}},
        {"cut.vcf", kMueller + "BEGIN:VCARD\nN:;Bo", {"FAILS"}, {"cut.vcf, line 6: BEGIN:VCARD without END:VCARD"}, {}},
        {"packed_cut.vcf.gz",
         gzipped(kMueller).substr(0, 30),
         {"FAILS"},
         {"packed_cut.vcf.gz: cannot be unpacked: it is cut short"},
         {}},
        {"packed_damaged.vcf.gz", "\x1F\x8B garbage", {"FAILS"}, {"cannot be unpacked: it is damaged"}, {}},
        {"letter.txt", "Dear Ann,\n\nhow are you?\n", {"FAILS"}, {"letter.txt: there is no vCard in it"}, {}},
        {"empty.vcf", "", {"FAILS"}, {"empty.vcf: there is no vCard in it"}, {}},
    };
}

const char* const kGoogleOld =
    "Name,Given Name,Additional Name,Family Name,Name Prefix,Name Suffix,Nickname,Group Membership,E-mail 1 - Type,"
    "E-mail 1 - Value,Phone 1 - Type,Phone 1 - Value,Phone 2 - Type,Phone 2 - Value,Organization 1 - Name\n";
const char* const kOutlook =
    "\"Title\",\"First Name\",\"Middle Name\",\"Last Name\",\"Suffix\",\"Company\",\"Business Phone\",\"Home Phone\","
    "\"Mobile Phone\",\"E-mail Address\"\n";

std::vector<Dialect> tables() {
    return {
        {"google_old.csv",
         std::string(kGoogleOld) +
             "Ann Lee,Ann,,Lee,Dr.,,,* myContacts,* Work,ann@example.com,Mobile,1 ::: 2,Boat,3,Works\n",
         {"Ann Lee 1(_$!<Mobile>!$_) 2(_$!<Mobile>!$_) 3(Boat) ann@example.com(_$!<Work>!$_)"},
         {},
         {}},
        {"google_new.csv",
         "First Name,Middle Name,Last Name,Organization Name,Labels,E-mail 1 - Label,E-mail 1 - Value,Phone 1 - "
         "Label,Phone 1 - Value,Photo\nAnn,,Lee,,* myContacts,* Home,a@b.c,Mobile,1,https://example.com/a.jpg\n",
         {"Ann Lee 1(_$!<Mobile>!$_) a@b.c(_$!<Home>!$_)"},
         {"google_new.csv, line 2: Ann Lee goes without photo: pictures are not fetched from "
          "https://example.com/a.jpg"},
         {}},
        {"google_utf16.csv",
         "\xFF\xFE" + encoded(std::string(kGoogleOld) + "Ann Łężół,Ann,,Łężół,,,,,,,Home,1,,,\n", "UTF-16LE"),
         {"Ann Łężół 1(_$!<Home>!$_)"},
         {},
         {}},
        {"outlook.csv",
         std::string(kOutlook) + "\"\",\"Ann\",\"\",\"Lee\",\"\",\"Works, Inc.\",\"1\",\"2\",\"3\",\"a@b.c\"\n",
         {"Ann Lee 1(_$!<Work>!$_) 2(_$!<Home>!$_) 3(_$!<Mobile>!$_) a@b.c"},
         {},
         {}},
        {"outlook_cr.csv",
         withLineEnds(std::string(kOutlook) + ",Ann,,Lee,,,,,3,\n", "\r"),
         {"Ann Lee 3(_$!<Mobile>!$_)"},
         {},
         {}},
        {"outlook_cp1252.csv",
         encoded("\"Vorname\";\"Nachname\";\"Firma\";\"Telefon (geschäftlich)\";\"E-Mail-Adresse\"\n"
                 "\"Jörg\";\"Müller\";\"\";\"1\";\"a@b.c\"\n",
                 "WINDOWS-1252"),
         {"Jörg Müller 1(_$!<Work>!$_) a@b.c"},
         {},
         "windows-1252"},
        {"outlook_unnamed_charset.csv",
         encoded("First Name,Last Name\nAnn,Lee\nJörg,Müller\n", "WINDOWS-1252"),
         {"Ann Lee", "J\uFFFDrg M\uFFFDller"},
         {"outlook_unnamed_charset.csv, line 3: it is not UTF-8, and nothing says what else"},
         {}},
        {"outlook_fr.csv", "Prénom;Nom;Tél. mobile\nZoé;Œuvre;1\n", {"Zoé Œuvre 1(_$!<Mobile>!$_)"}, {}, {}},
        {"thunderbird.tsv",
         "First Name\tLast Name\tDisplay Name\tPrimary Email\tWork Phone\tMobile Number\nAnn\tLee\tAnn "
         "Lee\ta@b.c\t1\t2\n",
         {"Ann Lee 1(_$!<Work>!$_) 2(_$!<Mobile>!$_) a@b.c"},
         {},
         {}},
        {"excel_sep.csv", "sep=;\nName;Phone\nAnn Lee;1\n", {"Ann Lee - 1"}, {}, {}},
        {"quoted_line_end.csv",
         "Name,Phone,Notes\n\"Ann \"\"A\"\" Lee\",1,\"two\nlines\"\nBo,2,\n",
         {"Ann \"A\" Lee - 1", "Bo - 2"},
         {},
         {}},
        {"empty_row.csv",
         "Name,Phone\nAnn,1\n,\n",
         {"Ann - 1"},
         {"empty_row.csv, line 3: this row has neither name nor number and is left out"},
         {}},
        {"header_alone.csv", "Name,Phone\n", {}, {"header_alone.csv: there is no contact in it"}, {}},
        {"packed.csv.gz", gzipped("Name,Phone\nAnn,1\n"), {"Ann - 1"}, {}, {}},
        {"prices.csv",
         "Item,Price,Stock\nTea,3,9\n",
         {"FAILS"},
         {"prices.csv, line 1: is CSV, but this row names no"},
         {}},
        {"open_quote.csv",
         "Name,Phone\nAnn,1\n\"Bo,2\n",
         {"FAILS"},
         {"open_quote.csv, line 3: a quote opens here"},
         {}},
        {"thunderbird.ldif",
         "dn: cn=Ann Lee,mail=a@b.c\nobjectclass: top\nobjectclass: person\ngivenName: Ann\nsn: Lee\ncn: Ann Lee\n"
         "mail: a@b.c\nmozillaSecondEmail: d@e.f\ntelephoneNumber: 1\nhomePhone: 2\nmobile: 3\n\n",
         {"Ann Lee 1(_$!<Work>!$_) 2(_$!<Home>!$_) 3(_$!<Mobile>!$_) a@b.c d@e.f"},
         {},
         {}},
        {"coded.ldif",
         "version: 1\n\n# a comment\n that goes on\ndn:: " + base64("cn=Jörg Müller") +
             "\ngivenName:: " + base64("Jörg") + "\nsn:: " + base64("Müller") + "\nmobile: +49\n  30\n",
         {"Jörg Müller +49 30(_$!<Mobile>!$_)"},
         {},
         {}},
        {"coded_latin1.ldif", "dn: cn=x\ngivenName:: " + base64("J\xF6rg") + "\n", {"Jörg -"}, {}, "ISO-8859-1"},
        {"photo.ldif",
         "dn: cn=x\ngivenName: Ann\njpegPhoto:: " + folded(base64(jpeg()), " ") + "\n",
         {"Ann - photo"},
         {},
         {}},
        {"photo_outside.ldif",
         "dn: cn=x\ngivenName: Ann\njpegPhoto:< file:///etc/hostname\n",
         {"Ann -"},
         {"photo_outside.ldif, line 3: Ann goes without photo: /etc/hostname is outside"},
         {}},
        {"group.ldif",
         "dn: cn=Friends\nobjectclass: groupOfNames\ncn: Friends\n\ndn: cn=x\nchangetype: delete\n\ndn: cn=y\nsn: "
         "Lee\n",
         {"- Lee"},
         {"group.ldif, line 1: this entry is a group", "line 5: this entry changes another"},
         {}},
        {"broken_base64.ldif", "dn: cn=x\nsn:: %%%\n", {"FAILS"}, {"broken_base64.ldif, line 2: is not LDIF"}, {}},
        {"broken.ldif", "dn: cn=x\nsn: Lee\nno colon here\n", {"FAILS"}, {"broken.ldif, line 3: is not LDIF"}, {}},
    };
}

class ContactDialects : public testing::TestWithParam<Dialect> {
  protected:
    // "First Last number(label) address(label) photo" of each contact.
    std::vector<std::string> contacts() const {
        std::vector<std::string> result;
        for (const std::string& id : test::queryBook(bench.root(), "SELECT ROWID FROM ABPerson ORDER BY ROWID"))
            result.push_back(described(id));
        return result;
    }
    std::string described(const std::string& id) const {
        const auto ask = [&](const std::string& sql) { return test::queryBook(bench.root(), sql.c_str()); };
        const auto names = ask("SELECT coalesce(First, '-'), coalesce(Last, '-') FROM ABPerson WHERE ROWID = " + id);
        std::string text = names.at(0) + " " + names.at(1);
        for (const std::string& value : ask("SELECT v.value || coalesce('(' || l.value || ')', '') FROM ABMultiValue v "
                                            "LEFT JOIN ABMultiValueLabel l "
                                            "ON l.ROWID = v.label WHERE record_id = " +
                                            id + " ORDER BY UID"))
            text += " " + value;
        const std::string photo = "SELECT 1 FROM ABThumbnailImage WHERE record_id = " + id;
        return test::queryImages(bench.root(), photo.c_str()).empty() ? text : text + " photo";
    }

    test::Workbench bench;
};

TEST_P(ContactDialects, ComeInWholeOrAreRefusedByFileAndLine) {
    const Dialect& dialect = GetParam();
    maker::RootOptions options;
    options.root = bench.root();
    options.noCalls = true;
    options.contacts = {bench.write(dialect.name, dialect.bytes)};
    options.charset = dialect.charset;
    testing::internal::CaptureStderr();
    const phone::Result<maker::RootReport> report = maker::makeRoot(options);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "a parser has spoken to the terminal";
    if (!dialect.expected.empty() && dialect.expected.front() == "FAILS") {
        ASSERT_FALSE(report);
        EXPECT_THAT(phone::problemOf(report), HasSubstr(dialect.told.front()));
        return;
    }
    ASSERT_EQ(phone::problemOf(report), "");
    EXPECT_EQ(contacts(), dialect.expected);
    const std::vector<std::string> told = maker::sentences(report->findings, true);
    ASSERT_EQ(told.size(), dialect.told.size()) << testing::PrintToString(told);
    for (std::size_t i = 0; i < told.size(); ++i) EXPECT_THAT(told[i], HasSubstr(dialect.told[i]));
}

std::string nameOf(const testing::TestParamInfo<Dialect>& info) {
    std::string name = info.param.name;
    for (char& c : name)
        if (c == '.') c = '_';
    return name;
}

INSTANTIATE_TEST_SUITE_P(VCards, ContactDialects, testing::ValuesIn(vcards()), nameOf);
INSTANTIATE_TEST_SUITE_P(Tables, ContactDialects, testing::ValuesIn(tables()), nameOf);

}  // namespace
