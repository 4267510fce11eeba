// An open file of this machine that is closed by its owner.
#pragma once

#include <unistd.h>

#include <utility>

namespace phone {

class Descriptor {
  public:
    Descriptor() = default;
    // Takes what open(2) and its like return; a negative number owns nothing.
    explicit Descriptor(int descriptor) : descriptor_(descriptor) {}
    Descriptor(Descriptor&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    ~Descriptor() {
        if (descriptor_ >= 0) ::close(descriptor_);
    }

    bool isOpen() const { return descriptor_ >= 0; }
    int get() const { return descriptor_; }

  private:
    int descriptor_ = -1;
};

}  // namespace phone
