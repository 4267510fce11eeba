#include "src/platform/encoding.h"

#include <cstring>

namespace zelka::detail {
namespace {

const char* skipQualifiersAndOffsets(const char* at) {
    while (*at != '\0' && std::strchr("rnNoORVA0123456789+-", *at) != nullptr) ++at;
    return at;
}

// The letter that stands for every type passed in the same place as this one.
char passedAs(char letter) {
    switch (letter) {
        case 'c':
        case 'C':
        case 'B':
            return 'C';
        case 's':
        case 'S':
            return 'S';
        case 'i':
        case 'I':
            return 'I';
        case 'q':
        case 'Q':
            return 'Q';
        case 'l':
        case 'L':
            return sizeof(long) == 8 ? 'Q' : 'I';
        case '@':
        case '#':
        case ':':
        case '*':
        case '^':
            return '@';
        default:
            return letter;
    }
}

// Past the bracketed type at `at`, whose brackets nest.
const char* skipBracketed(const char* at, char open, char close) {
    int depth = 0;
    do {
        if (*at == open) ++depth;
        if (*at == close) --depth;
        ++at;
    } while (depth > 0 && *at != '\0');
    return at;
}

const char* skipPointee(const char* at) {
    at = skipQualifiersAndOffsets(at + 1);
    if (*at == '{') return skipBracketed(at, '{', '}');
    if (*at == '(') return skipBracketed(at, '(', ')');
    if (*at == '[') return skipBracketed(at, '[', ']');
    if (*at == '^') return skipPointee(at);
    return *at == '\0' ? at : at + 1;
}

// Past the quoted class name at `at`, or to the end of an encoding that breaks off in it.
const char* skipClassName(const char* at) {
    const char* end = std::strchr(at + 1, '"');
    return end != nullptr ? end + 1 : at + std::strlen(at);
}

// Reads the next step of an encoding: a letter of passedAs, or a struct's opening or closing brace. The struct's name
// is skipped.
char nextStep(const char*& at) {
    at = skipQualifiersAndOffsets(at);
    char letter = *at;
    if (letter == '\0') return letter;
    if (letter == '{') {
        const char* fields = std::strchr(at, '=');
        at = fields != nullptr ? fields + 1 : at + 1;
    } else if (letter == '^') {
        at = skipPointee(at);
    } else {
        ++at;
        if (letter == '@' && *at == '?') ++at;
        if (letter == '@' && *at == '"') at = skipClassName(at);
    }
    return passedAs(letter);
}

}  // namespace

bool encodingsAgree(const char* left, const char* right) {
    for (;;) {
        char leftStep = nextStep(left);
        char rightStep = nextStep(right);
        if (leftStep != rightStep) return false;
        if (leftStep == '\0') return true;
    }
}

}  // namespace zelka::detail
