#pragma once

// Foundation here is another system's; where it differs from a phone's, its methods are replaced while the program
// loads. At that time no message may be sent: the selectors of files that load later do not exist yet. Hence classes by
// name.

#include <objc/runtime.h>

namespace phone {

// Replaces a method that the class itself implements, and returns the previous implementation cast to the replacement's
// type. A class method: give the class's class. Ends the process with a message when the class has no such method of
// its own: it would mean a Foundation that this simulator does not know.
IMP replaceMethod(Class cls, const char* selector, IMP replacement);

template <typename Function>
Function replaceMethod(Class cls, const char* selector, Function replacement) {
    return reinterpret_cast<Function>(replaceMethod(cls, selector, reinterpret_cast<IMP>(replacement)));
}

// Replaces the method in `base` and in every subclass that has its own.
void replaceMethodEverywhere(Class base, const char* selector, IMP replacement);

}  // namespace phone
