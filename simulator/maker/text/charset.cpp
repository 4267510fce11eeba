#include "simulator/maker/text/charset.h"

#include <glib.h>
#include <unicode/localpointer.h>
#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>
#include <unicode/unistr.h>

namespace maker {
namespace {

constexpr std::size_t kLongest = 500'000'000;  // ICU counts in 32 bits

bool isNamed(const std::string& charset, const char* name) { return ucnv_compareNames(charset.c_str(), name) == 0; }

const char* usedName(const std::string& charset) {
    for (const char* latin1 : {"ISO-8859-1", "latin1", "US-ASCII"})
        if (isNamed(charset, latin1)) return "windows-1252";
    return charset.c_str();
}

icu::LocalUConverterPointer openConverter(const std::string& charset) {
    UErrorCode error = U_ZERO_ERROR;
    UConverter* converter = charset.empty() ? nullptr : ucnv_open(usedName(charset), &error);
    return icu::LocalUConverterPointer(U_SUCCESS(error) ? converter : nullptr);
}

// Counts what it substitutes.
void substitute(const void* context, UConverterToUnicodeArgs* arguments, const char* units, int32_t length,
                UConverterCallbackReason reason, UErrorCode* error) {
    if (reason <= UCNV_IRREGULAR) ++*static_cast<std::size_t*>(const_cast<void*>(context));
    UCNV_TO_U_CALLBACK_SUBSTITUTE(nullptr, arguments, units, length, reason, error);
}

}  // namespace

Result<Converted> toUtf8(std::string_view bytes, const std::string& charset) {
    const icu::LocalUConverterPointer converter = openConverter(charset);
    if (converter.isNull()) return failure("the character set \"" + charset + "\" is not known");
    if (bytes.size() > kLongest) return failure("a text of more than " + std::to_string(kLongest) + " bytes");
    Converted converted;
    UErrorCode error = U_ZERO_ERROR;
    ucnv_setToUCallBack(converter.getAlias(), substitute, &converted.replaced, nullptr, nullptr, &error);
    const auto length = static_cast<int32_t>(bytes.size());
    // The longest that a converter makes of so many bytes, and room for what it keeps back until the end.
    const int32_t room = 2 * length + 16;
    icu::UnicodeString text;
    const int32_t written =
        ucnv_toUChars(converter.getAlias(), text.getBuffer(room), room, bytes.data(), length, &error);
    text.releaseBuffer(U_SUCCESS(error) ? written : 0);
    if (U_FAILURE(error)) return failure("the bytes cannot be read as " + charset + ": " + u_errorName(error));
    text.toUTF8String(converted.text);
    return converted;
}

bool isCharset(const std::string& name) { return openConverter(name).isValid(); }

bool isUtf8(std::string_view bytes) {
    // GLib takes a zero byte for an error, which as a character it is not.
    for (std::size_t start = 0; start <= bytes.size();) {
        const std::size_t end = std::min(bytes.find('\0', start), bytes.size());
        if (g_utf8_validate(bytes.data() + start, static_cast<gssize>(end - start), nullptr) == FALSE) return false;
        start = end + 1;
    }
    return true;
}

}  // namespace maker
