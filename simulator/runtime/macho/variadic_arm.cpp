// Variadic functions as the code of 32-bit phones calls them: each argument follows the one before, where everybody
// else with this processor begins 64-bit ones at a multiple of eight bytes.

#if defined(__arm__)

#include <stdarg.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>

#include <vector>

namespace {

// How many words each conversion of a format takes, in order.
std::vector<int> wordsOf(const char* format) {
    std::vector<int> words;
    for (const char* at = strchr(format, '%'); at != nullptr; at = strchr(at, '%')) {
        ++at;
        bool isLong = false;
        for (; *at != '\0' && strchr("-+ #0123456789.*hljztqL$'", *at) != nullptr; ++at) {
            if (*at == '*') words.push_back(1);
            isLong = isLong || *at == 'j' || *at == 'q' || (at[0] == 'l' && at[1] == 'l');
        }
        if (*at == '\0') break;
        if (*at != '%') words.push_back(strchr("aAeEfFgG", *at) != nullptr || (isLong && *at != 's') ? 2 : 1);
        ++at;
    }
    return words;
}

// The arguments of a phone's call as this machine's functions read them.
class Arguments {
  public:
    Arguments(const char* format, va_list phones) {
        for (const int count : wordsOf(format)) {
            if (count == 2 && words_.size() % 2 != 0) words_.push_back(0);
            for (int i = 0; i < count; ++i) words_.push_back(va_arg(phones, uint32_t));
        }
        words_.resize(words_.size() + 2);
    }

    // A list is the address of its first word (AAPCS, "Definition of va_list"); allocated memory begins at a multiple
    // of eight bytes.
    va_list list() {
        va_list list;
        void* first = words_.data();
        static_assert(sizeof list == sizeof first);
        memcpy(&list, &first, sizeof first);
        return list;
    }

  private:
    std::vector<uint32_t> words_;
};

}  // namespace

extern "C" {

int phoneSnprintf(char* text, size_t size, const char* format, ...) {
    va_list phones;
    va_start(phones, format);
    Arguments arguments(format, phones);
    va_end(phones);
    return vsnprintf(text, size, format, arguments.list());
}
}

#endif
