// The order of names in a list of contacts, and the sections that they stand in, by ICU's tables for a language.
#pragma once

#include <memory>
#include <string>

namespace contacts_ui {

// Immutable; any thread.
class NameOrder {
  public:
    // Of a language by its BCP 47 tag ("pl", "zh-Hant").
    explicit NameOrder(const std::string& language);
    ~NameOrder();
    NameOrder(const NameOrder&) = delete;
    NameOrder& operator=(const NameOrder&) = delete;

    struct Place {
        int section = 0;    // sections stand in the order of these numbers
        std::string title;  // the section's: a letter of the language, of another alphabet that phones know, or "#"
        std::string key;    // names within a section stand in the order of these bytes
    };
    // Where a name belongs. Chinese characters stand by their sound among the letters, unless the language sorts them
    // itself. "#" is for names that begin with no letter, or with one of an alphabet without sections; it comes last.
    Place placeOf(const std::string& name) const;

  private:
    struct Tables;
    std::unique_ptr<const Tables> tables_;
};

// That of this device's language.
const NameOrder& deviceNameOrder();

}  // namespace contacts_ui
