// Errors by value: what makes a phone root also runs where C++ exceptions must not pass (Objective-C++ tests, hosts).
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <variant>

namespace phone {

// A sentence for a person: what was being done, to which file, and what was wrong with it.
struct Failure {
    std::string message;
};

// Either a value or a Failure.
template <class T>
class [[nodiscard]] Result {
  public:
    Result(T value) : held_(std::in_place_index<0>, std::move(value)) {}
    Result(Failure failure) : held_(std::in_place_index<1>, std::move(failure)) {}

    bool ok() const { return held_.index() == 0; }
    explicit operator bool() const { return ok(); }

    // The value; a Failure here is a mistake of the caller, and ends the process with its message.
    T& value() & {
        requireValue();
        return *std::get_if<0>(&held_);
    }
    T value() && {
        requireValue();
        return std::move(*std::get_if<0>(&held_));
    }
    T& operator*() & { return value(); }
    T* operator->() { return &value(); }

    // The failure; only when there is one. `text()` is empty otherwise.
    Failure failure() const { return Failure{text()}; }
    std::string text() const {
        const Failure* failure = std::get_if<1>(&held_);
        return failure ? failure->message : std::string();
    }

  private:
    void requireValue() const {
        if (ok()) return;
        std::fprintf(stderr, "%s\n", text().c_str());
        std::abort();
    }

    std::variant<T, Failure> held_;
};

struct Done {};
using Status = Result<Done>;

}  // namespace phone
