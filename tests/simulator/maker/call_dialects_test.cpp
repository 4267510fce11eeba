// Call logs as apps and carriers export them, each of which comes in whole or is refused with file, line and reason.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulator/maker/database/schema.h"
#include "tests/simulator/maker/dialects.h"
#include "tests/simulator/maker/workbench.h"

namespace {

using test::Dialect;
using test::encoded;
using test::gzipped;
using test::withLineEnds;
using testing::HasSubstr;

const char* const kTwo = "2015-06-01 09:41,+1 212 555 0142,Incoming,63\n2015-06-02 10:00:05,5550199,MISSED,0\n";
const std::vector<std::string> kHasTwo = {"2015-06-01 09:41:00 +1 212 555 0142 in 63",
                                          "2015-06-02 10:00:05 5550199 missed 0"};

std::string xml(const std::string& calls) {
    return "<?xml version='1.0' encoding='UTF-8' standalone='yes' ?>\n<!--File Created-->\n"
           "<?xml-stylesheet type=\"text/xsl\" href=\"calls.xsl\"?>\n<calls count=\"1\">\n" +
           calls + "</calls>\n";
}

std::vector<Dialect> logs() {
    return {
        {"plain.csv",
         "-1h, 1, missed\n2015-06-01 09:41, 2, outgoing, 12\n",
         {"2015-06-10 11:00:00 1 missed 0", "2015-06-01 09:41:00 2 out 12"},
         {},
         {}},
        {"commas.csv", std::string("Date,Number,Type,Duration\n") + kTwo, kHasTwo, {}, {}},
        {"semicolons.csv",
         "\"Number\";\"Call Type\";\"Date\";\"Duration (sec)\"\n\"+1 212 555 0142\";\"incoming\";\"2015-06-01 "
         "09:41\";\"63\"\n\"5550199\";\"Missed call\";\"2015-06-02 10:00:05\";\"\"\n",
         kHasTwo,
         {},
         {}},
        {"tabs.tsv",
         "When\tPhone\tKind\tSeconds\n2015-06-01 09:41\t+1 212 555 0142\treceived\t63\n",
         {kHasTwo[0]},
         {},
         {}},
        {"mark.csv",
         std::string("\xEF\xBB\xBF"
                     "Date,Number,Type,Duration\n") +
             kTwo,
         kHasTwo,
         {},
         {}},
        {"utf16.csv",
         "\xFF\xFE" + encoded(std::string("Date,Number,Type,Duration\r\n") + kTwo, "UTF-16LE"),
         kHasTwo,
         {},
         {}},
        {"cr.csv", withLineEnds(std::string("Date,Number,Type,Duration\n") + kTwo, "\r"), kHasTwo, {}, {}},
        {"packed.csv.gz", gzipped(std::string("Date,Number,Type,Duration\n") + kTwo), kHasTwo, {}, {}},
        {"zones.csv",
         "Date,Number,Type,Duration\n2015-06-01T09:41:00Z,1,out,0\n2015-06-01T09:41:00+02:00,1,out,0\n"
         "2015-06-01T09:41:00.250-0530,1,out,0\n2015-06-01 09:41 UTC,1,out,0\n",
         {"2015-06-01 09:41:00 1 out 0", "2015-06-01 07:41:00 1 out 0", "2015-06-01 15:11:00 1 out 0",
          "2015-06-01 09:41:00 1 out 0"},
         {},
         {}},
        {"since1970.csv",
         "timestamp,number,type,duration\n1433151660,1,1,5\n1433151660250,1,2,5\n",
         {"2015-06-01 09:41:00 1 in 5", "2015-06-01 09:41:00 1 out 5"},
         {},
         {}},
        {"day_first.csv",
         "Date,Number,Type\n01/06/2015 09:41,1,out\n13/06/2015 09:41,2,out\n",
         {"2015-06-01 09:41:00 1 out 0", "2015-06-13 09:41:00 2 out 0"},
         {},
         {}},
        {"month_first.csv",
         "Date,Number,Type\n6/1/2015 9:41:05 PM,1,out\n6/13/15 12:05 AM,2,out\n",
         {"2015-06-01 21:41:05 1 out 0", "2015-06-13 00:05:00 2 out 0"},
         {},
         {}},
        {"narrow_blank.csv",
         "Date,Number,Type\n\"Jun 1, 2015, 9:41:05\u202FPM\",1,out\n",
         {"2015-06-01 21:41:05 1 out 0"},
         {},
         {}},
        {"named_months.csv",
         "Date,Number,Type\n1 June 2015 09:41,1,out\n\"Mon, 1-Jun-2015 09:41\",1,out\n",
         {"2015-06-01 09:41:00 1 out 0", "2015-06-01 09:41:00 1 out 0"},
         {},
         {}},
        {"german.csv",
         "Datum;Uhrzeit;Rufnummer;Typ;Dauer\n01.06.2015;09:41;1;Eingehender Anruf;0:01:03\n",
         {"2015-06-01 09:41:00 1 in 63"},
         {},
         {}},
        {"german_words.csv",
         encoded("Datum;Uhrzeit;Rufnummer;Typ;Dauer;Name\n01.06.2015;09:41;1;Eingehend;0:01:03;Jörg\n1.6.2015;9.41;2;"
                 "Verpasst;;\n",
                 "WINDOWS-1252"),
         {"2015-06-01 09:41:00 1 in 63 Jörg", "2015-06-01 09:41:00 2 missed 0"},
         {},
         "windows-1252"},
        {"durations.csv",
         "Date,Number,Type,Call duration\n2015-06-01 09:41,1,in,1:03\n2015-06-01 09:41,1,in,01:00:03\n"
         "2015-06-01 09:41,1,in,1h 2m 3s\n2015-06-01 09:41,1,in,2 min 3 sec\n2015-06-01 09:41,1,in,63.4\n",
         {"2015-06-01 09:41:00 1 in 63", "2015-06-01 09:41:00 1 in 3603", "2015-06-01 09:41:00 1 in 3723",
          "2015-06-01 09:41:00 1 in 123", "2015-06-01 09:41:00 1 in 63"},
         {},
         {}},
        {"kinds.csv",
         "Date,Number,Direction\n2015-06-01 09:41,1,Rejected\n2015-06-01 09:41,1,BLOCKED\n2015-06-01 09:41,1,Dialled\n"
         "2015-06-01 09:41,1,No answer\n2015-06-01 09:41,1,Outgoing Call\n",
         {"2015-06-01 09:41:00 1 missed 0", "2015-06-01 09:41:00 1 missed 0", "2015-06-01 09:41:00 1 out 0",
          "2015-06-01 09:41:00 1 missed 0", "2015-06-01 09:41:00 1 out 0"},
         {},
         {}},
        {"mended.csv",
         "Date,Number,Type,Duration\n2015-06-01 09:41,1,incoming,0\n2015-06-01 09:41,1,voicemail,20\n",
         {"2015-06-01 09:41:00 1 in 1", "2015-06-01 09:41:00 1 missed 0"},
         {"mended.csv, line 2: an answered call lasts 1 second here",
          "line 3: a call that was not taken lasts 0 seconds here, not 20"},
         {}},
        {"backup.xml",
         xml("<call number=\"+12125550142\" duration=\"63\" date=\"1433151660000\" type=\"1\" presentation=\"1\" "
             "readable_date=\"x\" contact_name=\"(Unknown)\" />\n<call number=\"5550199\" duration=\"0\" "
             "date=\"1433239205000\" type=\"5\" presentation=\"1\" contact_name=\"Ann\" />\n"),
         {"2015-06-01 09:41:00 +12125550142 in 63", "2015-06-02 10:00:05 5550199 missed 0 Ann"},
         {},
         {}},
        {"backup_hidden.xml",
         xml("<call number=\"-2\" duration=\"0\" date=\"1433151660000\" type=\"3\" presentation=\"2\" />\n"),
         {"2015-06-01 09:41:00  missed 0"},
         {},
         {}},
        {"backup_pairs.xml",
         xml("<call number=\"1\" duration=\"4\" date=\"1433151660000\" type=\"2\" contact_name=\"&#55357;&#56842; "
             "Ann\" />\n"),
         {"2015-06-01 09:41:00 1 out 4 \U0001F60A Ann"},
         {},
         {}},
        {"backup_messages.xml",
         "<?xml version='1.0'?>\n<smses count=\"0\"></smses>\n",
         {"FAILS"},
         {"backup_messages.xml: this XML holds no <calls>"},
         {}},
        {"backup_cut.xml", "<calls>\n<call number=\"1\"", {"FAILS"}, {"backup_cut.xml, line 2: is not sound XML"}, {}},
        {"backup_type.xml",
         xml("<call number=\"1\" duration=\"4\" date=\"1433151660000\" type=\"9\" />\n"),
         {"FAILS"},
         {"backup_type.xml, line 5: the call's type \"9\" is not known"},
         {}},
        {"either.csv",
         "Date,Number,Type\n01/06/2015 09:41,1,out\n02/07/2015 09:41,1,out\n",
         {"FAILS"},
         {"either.csv, line 2: in \"01/06/2015 09:41\" nothing says whether the day or the month comes first"},
         {}},
        {"no_day.csv",
         "Date,Number,Type\n2015-02-31 09:41,1,out\n",
         {"FAILS"},
         {"no_day.csv, line 2: \"2015-02-31 09:41\" is no date"},
         {}},
        {"no_kind.csv",
         "Date,Number,Type\n2015-06-01 09:41,1,sideways\n",
         {"FAILS"},
         {"no_kind.csv, line 2: \"sideways\" is no kind"},
         {}},
        {"no_duration.csv",
         "Date,Number,Type,Duration\n2015-06-01 09:41,1,in,long\n",
         {"FAILS"},
         {"no_duration.csv, line 2: \"long\" is no duration"},
         {}},
        {"no_kind_column.csv",
         "Date,Number\n2015-06-01 09:41,1\n",
         {"FAILS"},
         {"no_kind_column.csv, line 1: this row names no column for the kind of call"},
         {}},
        {"open_quote.csv",
         "Date,Number,Type\n2015-06-01 09:41,\"1,out\n",
         {"FAILS"},
         {"open_quote.csv, line 2: a quote opens here"},
         {}},
    };
}

class CallDialects : public testing::TestWithParam<std::tuple<Dialect, const char*>> {
  protected:
    // "date time number kind seconds name" of each call, from the store or from the history.
    std::vector<std::string> calls() const {
        const bool store = std::string(std::get<1>(GetParam())) == "iphone6-8.4";
        const char* const sql =
            store ? "SELECT datetime(ZDATE + 978307200, 'unixepoch') || ' ' || CAST(ZADDRESS AS TEXT) || "
                    "CASE WHEN ZORIGINATED THEN ' out ' WHEN ZANSWERED THEN ' in ' ELSE ' missed ' END || "
                    "CAST(ZDURATION AS INTEGER) || coalesce(' ' || ZNAME, '') FROM ZCALLRECORD ORDER BY Z_PK"
                  : "SELECT datetime(date, 'unixepoch') || ' ' || address || CASE WHEN flags & 1 THEN ' out ' "
                    "WHEN duration THEN ' in ' ELSE ' missed ' END || duration || coalesce(' ' || name, '') FROM call "
                    "ORDER BY ROWID";
        const auto& shape = store ? maker::callStoreShape() : maker::callHistoryShape();
        return test::query(bench.root() / shape.path, sql);
    }

    test::Workbench bench;
};

TEST_P(CallDialects, ComeInWholeOrAreRefusedByFileAndLine) {
    const Dialect& dialect = std::get<0>(GetParam());
    maker::RootOptions options;
    options.root = bench.root();
    options.device = std::get<1>(GetParam());
    options.calls = bench.write(dialect.name, dialect.bytes);
    options.charset = dialect.charset;
    options.now = 1433937600;  // 2015-06-10 12:00 UTC
    const phone::Result<maker::RootReport> report = maker::makeRoot(options);
    if (dialect.expected.front() == "FAILS") {
        ASSERT_FALSE(report);
        EXPECT_THAT(phone::problemOf(report), HasSubstr(dialect.told.front()));
        return;
    }
    ASSERT_EQ(phone::problemOf(report), "");
    EXPECT_EQ(calls(), dialect.expected);
    const std::vector<std::string> told = maker::sentences(report->findings, true);
    ASSERT_EQ(told.size(), dialect.told.size()) << testing::PrintToString(told);
    for (std::size_t i = 0; i < told.size(); ++i) EXPECT_THAT(told[i], HasSubstr(dialect.told[i]));
}

std::string nameOf(const testing::TestParamInfo<std::tuple<Dialect, const char*>>& info) {
    std::string name = std::get<0>(info.param).name;
    for (char& c : name)
        if (c == '.') c = '_';
    return name;
}

INSTANTIATE_TEST_SUITE_P(Store, CallDialects,
                         testing::Combine(testing::ValuesIn(logs()), testing::Values("iphone6-8.4")), nameOf);
INSTANTIATE_TEST_SUITE_P(History, CallDialects,
                         testing::Combine(testing::ValuesIn(logs()), testing::Values("iphone5s-7.1")), nameOf);

}  // namespace
