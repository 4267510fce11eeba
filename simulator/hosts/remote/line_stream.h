// Lines of text to and from another process.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace hosts {

// Over descriptors that belong to others and outlive it. Use it from one thread at a time.
class LineStream {
  public:
    LineStream(int input, int output) : input_(input), output_(output) {}

    // Writes a line and its end. Returns whether all of it was written; who reads may have ended.
    [[nodiscard]] bool write(std::string_view line) const;

    enum class Arrival { bytes, nothing, end };
    // Waits at most that long for more to be read, and reads some of it: a line may still not be whole.
    Arrival receive(double seconds);
    // The next whole line that was received, without its end; nothing when there is none.
    std::optional<std::string> take();

    int input() const { return input_; }

  private:
    int input_;
    int output_;
    std::string unread_;
};

}  // namespace hosts
