// Lines of the process's log. Text is built here and handed to NSLog through its one variadic door, because variadic
// calls pass their arguments differently on each architecture.
#pragma once

#include "src/platform/foundation/NSString.h"

namespace zelka {

// Builds a text from parts: C strings as UTF-8, objects as their description ("(null)" for nil), integers in decimal.
class TextBuilder {
  public:
    TextBuilder();
    void append(const char* utf8);
    void append(NSObject object);
    void append(long long number);
    void append(int number) { append(static_cast<long long>(number)); }
    void append(long number) { append(static_cast<long long>(number)); }

    // The text built so far (+0).
    NSString text() const { return text_.get(); }

  private:
    Owned<NSMutableString> text_;
};

// The parts joined (+0, autoreleased).
template <class... Parts>
NSString joinText(Parts... parts) {
    TextBuilder builder;
    (builder.append(parts), ...);
    return retain(builder.text()).autorelease();
}

// Writes one line to the log. Any thread.
void logText(NSString text);

// Writes the parts, joined, as one line to the log. Any thread.
template <class... Parts>
void logParts(Parts... parts) {
    TextBuilder builder;
    (builder.append(parts), ...);
    logText(builder.text());
}

}  // namespace zelka
