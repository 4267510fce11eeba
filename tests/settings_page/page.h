// A process that plays the Settings app and shows the page, loaded from the bundle as the app would load it.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "simulator/frameworks/preferences/preferences.h"
#include "src/settings/setting_rows.h"
#include "tests/support/temp_root.h"

namespace test {

class PageTest : public testing::Test {
  protected:
    explicit PageTest(const char* profile = "iphone6-8.4") : root(profile) {}
    ~PageTest() override;

    // Becomes the Settings app of the phone; for one page more, `leave` first.
    void open();
    void leave();

    // The page's row of that setting, or of that label's key; nil when there is none.
    PSSpecifier* row(zelka::Setting setting) const;
    PSSpecifier* row(const char* labelKey) const;
    // The cell that shows the row, which is scrolled into sight.
    PSTableCell* cell(PSSpecifier* specifier) const;
    bool isOn(zelka::Setting setting) const;
    // What a finger does to the row's switch, as long as it is enabled.
    void flip(zelka::Setting setting);
    // What a finger does to a button's row.
    void tap(const char* labelKey);

    // The text of that key in the bundle's English table.
    std::string english(const char* key) const;
    // The file as it is now; nil when it holds no dictionary.
    NSDictionary* file() const;
    // The six values in order, as text; "-" for one that the file lacks.
    std::string storedValues() const;
    // The notifications that have been posted on this phone, one after the other with a blank between.
    std::string posted() const;

    TempRoot root;
    PSListController* page = nil;

  private:
    NSAutoreleasePool* pool_ = nil;
    UIWindow* window_ = nil;
};

}  // namespace test
