// The name of a C++ type as text. A handle bears its class's name, so that the class need not be named a second time,
// where it could be another one.
#pragma once

#include "src/platform/fixed_string.h"

namespace zelka::detail {

// Clang spells the type at the end of the function's signature: "... [T = zelka::Name]".
template <class T>
constexpr std::string_view qualifiedTypeName() {
    std::string_view signature = __PRETTY_FUNCTION__;
    signature.remove_prefix(signature.rfind(" = ") + 3);
    signature.remove_suffix(1);
    return signature;
}

template <class T>
constexpr auto unqualifiedTypeName() {
    constexpr std::string_view kQualified = qualifiedTypeName<T>();
    constexpr std::size_t kScope = kQualified.rfind("::");
    constexpr std::string_view kName = kScope == std::string_view::npos ? kQualified : kQualified.substr(kScope + 2);
    FixedString<kName.size()> name;
    for (std::size_t i = 0; i < kName.size(); ++i) name.text[i] = kName[i];
    return name;
}

// The type's name without its namespaces.
template <class T>
inline constexpr auto className = unqualifiedTypeName<T>();

}  // namespace zelka::detail
