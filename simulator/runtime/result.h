// Errors by value, as tl::expected has them: the one way in which the simulator's functions fail.
#pragma once

#include <exception>
#include <string>
#include <tl/expected.hpp>
#include <utility>

namespace phone {

// Why something failed, as a sentence for a person: what was being done, to which file, and what was wrong with it.
struct Failure {
    std::string message;
};

}  // namespace phone

// What value() throws when there is none, with the failure's message.
template <>
class tl::bad_expected_access<phone::Failure> : public std::exception {
  public:
    explicit bad_expected_access(phone::Failure failure) : failure_(std::move(failure)) {}
    const char* what() const noexcept override { return failure_.message.c_str(); }

  private:
    phone::Failure failure_;
};

namespace phone {

template <class T>
using Result = tl::expected<T, Failure>;
using Status = Result<void>;

inline tl::unexpected<Failure> failure(std::string message) { return tl::unexpected<Failure>({std::move(message)}); }

// The same failure for a result of another type.
template <class T>
tl::unexpected<Failure> failure(const Result<T>& failed) {
    return tl::unexpected<Failure>(failed.error());
}

// Why it failed; empty when it did not.
template <class T>
std::string problemOf(const Result<T>& result) {
    return result ? std::string() : result.error().message;
}

// Throws a failure, as value() does of results that hold something: for programs, which end with what went wrong.
inline void require(const Status& status) {
    if (!status) throw tl::bad_expected_access<Failure>(status.error());
}

}  // namespace phone
