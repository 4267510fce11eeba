// Any two method encodings, apart by a zero byte.

#include <algorithm>

#include "fuzz/phone/target.h"
#include "src/platform/encoding.h"

void fuzz::encodings(Bytes input) {
    const auto end = std::find(input.begin(), input.end(), std::uint8_t{0});
    // Each of exactly its size on the heap, so that reading past its end is seen.
    std::string left(input.begin(), end), right(end == input.end() ? end : end + 1, input.end());
    left.shrink_to_fit();
    right.shrink_to_fit();
    const bool agree = zelka::detail::encodingsAgree(left.c_str(), right.c_str());
    if (agree != zelka::detail::encodingsAgree(right.c_str(), left.c_str())) fail("it depends on which comes first");
    if (!zelka::detail::encodingsAgree(left.c_str(), left.c_str())) fail("an encoding that does not agree with itself");
}
