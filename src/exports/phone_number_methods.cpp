#include "src/exports/phone_number_methods.h"

#include "src/util/phone_numbers.h"

namespace zelka {

std::span<const MethodRow> phoneNumberMethods() {
    static constexpr MethodRow rows[] = {
        classMethod<"getFormattedPhoneNumber:", NSString(NSString), &getFormattedPhoneNumber>(),
        classMethod<"getPlainPhoneNumber:", NSString(NSString), &getPlainPhoneNumber>(),
        classMethod<"getPhoneNumberFromURL:", NSString(NSString), &getPhoneNumberFromURL>(),
    };
    return rows;
}

}  // namespace zelka
