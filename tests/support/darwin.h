#pragma once

// Darwin notifications delivered here and now, to exactly the callbacks that the library has registered.

#import <Foundation/Foundation.h>

#include <string_view>

namespace test {

// Calls every observer of the name in this process, on this thread. Answers how many there were.
int deliver(std::string_view name);

// The same with another name than the one that the callbacks were registered for.
int deliverAs(NSString* pretended, std::string_view name);

}  // namespace test
