// The order of the Contacts list and its sections, on phones of several languages.
#include <nlohmann/json.hpp>
#include <vector>

#include "tests/simulator/tool/phonesim_fixture.h"

namespace {

using testing::ElementsAre;

class Sections : public PhoneSim {
  protected:
    // "TITLE name" of each row of the Contacts list of a phone with these names, "Last;First".
    std::vector<std::string> sorted(const std::vector<std::string>& names, const std::string& language) const {
        std::string cards;
        for (const std::string& name : names) cards += "BEGIN:VCARD\nN:" + name + "\nEND:VCARD\n";
        write("c.vcf", cards);
        EXPECT_EQ(
            run("new phone --force --no-calls --contacts c.vcf --device iphone6plus-9.3 --language " + language).err,
            "");
        const Outcome shot = run("shot phone contacts --row-details --without-extension");
        EXPECT_EQ(shot.status, 0) << shot.err;
        std::vector<std::string> rows;
        for (const auto& row : nlohmann::json::parse(shot.out))
            rows.push_back(row.at("sectionTitle").get<std::string>() + " " + row.at("name").get<std::string>());
        return rows;
    }
};

TEST_F(Sections, AreTheLettersOfTheLanguage) {
    const std::vector<std::string> names = {"Zorn;A", "Łężół;A", "Lis;A", "Luty;A", "Ćwik;A", "Cyran;A"};
    EXPECT_THAT(sorted(names, "pl"),
                ElementsAre("C A Cyran", "Ć A Ćwik", "L A Lis", "L A Luty", "Ł A Łężół", "Z A Zorn"));
    EXPECT_THAT(sorted(names, "en"),
                ElementsAre("C A Ćwik", "C A Cyran", "L A Łężół", "L A Lis", "L A Luty", "Z A Zorn"));
}

TEST_F(Sections, SwedishHasItsLastLettersLast) {
    EXPECT_THAT(sorted({"Öst;A", "Åberg;A", "Ärlig;A", "Zorn;A", "Alm;A"}, "sv"),
                ElementsAre("A A Alm", "Z A Zorn", "Å A Åberg", "Ä A Ärlig", "Ö A Öst"));
}

TEST_F(Sections, OfOtherAlphabetsAndOfChineseNamesAreNotTheNumberSign) {
    EXPECT_THAT(sorted({"王;小明", "Ivanov;A", "Иванов;А", "Παπάς;Ν", "כהן;ד", "123;A", "Xu;B"}, "en"),
                ElementsAre("I A Ivanov", "W 王小明", "X B Xu", "Π Ν Παπάς", "И А Иванов", "כ ד כהן", "# A 123"));
    EXPECT_THAT(sorted({"王;小明", "李;伟", "Bo;A"}, "zh-Hans"), ElementsAre("B A Bo", "L 李伟", "W 王小明"));
}

TEST_F(Sections, FirstNamesDecideAmongEqualLastNames) {
    EXPECT_THAT(sorted({"Lee;Zoë", "Lee;ann", "Leeds;A", "LEE;Bo"}, "en"),
                ElementsAre("L ann Lee", "L Bo LEE", "L Zoë Lee", "L A Leeds"));
}

}  // namespace
