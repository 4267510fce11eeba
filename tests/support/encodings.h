#pragma once

#include <objc/objc.h>

#include <string>

@class Protocol;

namespace test {

// A method encoding without what compilers may write differently: frame offsets, qualifiers and what pointers point to.
std::string plainEncoding(const char* encoding);

// Holds every method that the protocol itself declares against the class's: a line for each that is missing or has
// another encoding than the compiler gave the declaration; empty when all agree.
std::string differences(Protocol* protocol, Class cls);

}  // namespace test
