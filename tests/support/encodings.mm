#import <Foundation/Foundation.h>

#include "tests/support/encodings.h"

#include <objc/runtime.h>
#include <stdlib.h>

namespace test {
namespace {

// The end of the type that begins at `at`.
size_t typeEnd(const std::string& text, size_t at) {
    while (at < text.size() && text[at] == '^') ++at;
    if (at < text.size() && text[at] == '{') {
        int depth = 0;
        do {
            depth += text[at] == '{';
            depth -= text[at] == '}';
            ++at;
        } while (depth > 0);
        return at;
    }
    return at + 1;
}

std::string methodDifferences(Protocol* protocol, Class cls, bool instanceMethods) {
    std::string found;
    unsigned count = 0;
    objc_method_description* methods = protocol_copyMethodDescriptionList(protocol, YES, instanceMethods, &count);
    for (unsigned i = 0; i < count; ++i) {
        const char* name = sel_getName(methods[i].name);
        Method method = instanceMethods ? class_getInstanceMethod(cls, sel_registerName(name))
                                        : class_getClassMethod(cls, sel_registerName(name));
        const std::string declared = plainEncoding(methods[i].types);
        const std::string own = method != nullptr ? plainEncoding(method_getTypeEncoding(method)) : "missing";
        if (own != declared) {
            found += std::string(instanceMethods ? "-" : "+") + name + ": " + own + ", declared " + declared + "\n";
        }
    }
    free(methods);
    return found;
}

}  // namespace

std::string plainEncoding(const char* encoding) {
    std::string letters;
    for (const char* at = encoding; *at != '\0'; ++at) {
        if (*at == '{') {
            // Names of structs may hold digits and letters of qualifiers.
            while (*at != '=' && *at != '}' && *at != '\0') letters += *at++;
            letters += *at;
        } else if (strchr("rnNoORV0123456789", *at) == nullptr) {
            letters += *at;
        }
    }
    std::string plain;
    for (size_t at = 0; at < letters.size();) {
        const bool isPointer = letters[at] == '^';
        plain += isPointer ? '^' : letters[at];
        at = isPointer ? typeEnd(letters, at) : at + 1;
    }
    return plain;
}

std::string differences(Protocol* protocol, Class cls) {
    if (cls == Nil) return "no such class\n";
    return methodDifferences(protocol, cls, false) + methodDifferences(protocol, cls, true);
}

}  // namespace test
