#include "simulator/phone_number/phone_number.h"

#include <phonenumbers/phonenumber.pb.h>
#include <phonenumbers/phonenumberutil.h>

#include <algorithm>
#include <optional>

namespace phone_number {
namespace {

using i18n::phonenumbers::PhoneNumber;
using i18n::phonenumbers::PhoneNumberUtil;

const PhoneNumberUtil& util() { return *PhoneNumberUtil::GetInstance(); }

std::optional<PhoneNumber> parse(std::string_view text, std::string_view region) {
    PhoneNumber number;
    if (util().Parse(std::string(text), std::string(region), &number) != PhoneNumberUtil::NO_PARSING_ERROR) {
        return std::nullopt;
    }
    return number;
}

// What a keypad would dial: service codes such as "*100#" have no other identity.
std::string dialled(std::string_view text) {
    std::string result(text);
    util().NormalizeDiallableCharsOnly(&result);
    return result;
}

std::string lastFourOf(std::string digits) {
    util().NormalizeDigitsOnly(&digits);
    return digits.size() > 4 ? digits.substr(digits.size() - 4) : digits;
}

bool longEnoughWithoutAreaCode(const PhoneNumber& a, const PhoneNumber& b) {
    constexpr std::uint64_t smallestOfSevenDigits = 1000000;
    return std::min(a.national_number(), b.national_number()) >= smallestOfSevenDigits;
}

}  // namespace

Match compare(std::string_view a, std::string_view b, std::string_view region) {
    std::optional<PhoneNumber> first = parse(a, region);
    std::optional<PhoneNumber> second = parse(b, region);
    if (!first || !second) {
        std::string dialledFirst = dialled(a);
        bool same = !first && !second && !dialledFirst.empty() && dialledFirst == dialled(b);
        return same ? Match::exact : Match::none;
    }
    switch (util().IsNumberMatch(*first, *second)) {
        case PhoneNumberUtil::EXACT_MATCH:
            return Match::exact;
        case PhoneNumberUtil::NSN_MATCH:
            return Match::national;
        case PhoneNumberUtil::SHORT_NSN_MATCH:
            return longEnoughWithoutAreaCode(*first, *second) ? Match::shortForm : Match::none;
        default:
            return Match::none;
    }
}

std::vector<std::string> lastFour(std::string_view text, std::string_view region) {
    std::vector<std::string> result;
    if (std::optional<PhoneNumber> number = parse(text, region)) {
        std::string national;
        util().GetNationalSignificantNumber(*number, &national);
        result.push_back(lastFourOf(std::move(national)));
    }
    std::string asWritten = lastFourOf(std::string(text));
    if (!asWritten.empty() && std::find(result.begin(), result.end(), asWritten) == result.end()) {
        result.push_back(asWritten);
    }
    return result;
}

std::string displayForm(std::string_view text, std::string_view region) {
    std::optional<PhoneNumber> number = parse(text, region);
    if (!number || !util().IsPossibleNumber(*number)) return std::string(text);
    bool domestic = number->country_code() == util().GetCountryCodeForRegion(std::string(region));
    std::string result;
    util().Format(*number, domestic ? PhoneNumberUtil::NATIONAL : PhoneNumberUtil::INTERNATIONAL, &result);
    return result;
}

bool isRegion(std::string_view region) { return util().GetCountryCodeForRegion(std::string(region)) != 0; }

}  // namespace phone_number
