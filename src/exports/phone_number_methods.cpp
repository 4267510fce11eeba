#include "src/exports/phone_number_methods.h"

#include "src/platform/foundation/NSString.h"
#include "src/util/phone_numbers.h"

namespace zelka {

std::span<const MethodRow> phoneNumberMethods() {
    static constexpr MethodRow kRows[] = {
        classMethod<"getFormattedPhoneNumber:", NSString(NSString), &getFormattedPhoneNumber>(),
        classMethod<"getPlainPhoneNumber:", NSString(NSString), &getPlainPhoneNumber>(),
        classMethod<"getPhoneNumberFromURL:", NSString(NSString), &getPhoneNumberFromURL>(),
    };
    return kRows;
}

}  // namespace zelka
