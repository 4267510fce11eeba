// References that do not keep their object alive: the runtime's weak slots, as Clang's specification of automatic
// reference counting names their functions.
#pragma once

#include "src/platform/owned.h"

extern "C" {
id objc_initWeak(id* slot, id object);
id objc_loadWeakRetained(id* slot);
void objc_moveWeak(id* to, id* from);
void objc_destroyWeak(id* slot);
}

namespace zelka {

// Becomes nil when the object goes. Any thread.
template <ObjectHandle T>
class WeakReference {
  public:
    explicit WeakReference(T value) { objc_initWeak(&slot_, value.object); }
    WeakReference(WeakReference&& other) noexcept { objc_moveWeak(&slot_, &other.slot_); }
    WeakReference(const WeakReference&) = delete;
    WeakReference& operator=(const WeakReference&) = delete;
    ~WeakReference() { objc_destroyWeak(&slot_); }

    // The object, kept alive by what is returned (+1), or nothing.
    [[nodiscard]] Owned<T> get() const { return adopt(as<T>(NSObject{objc_loadWeakRetained(&slot_)})); }

  private:
    mutable id slot_ = nullptr;
};

}  // namespace zelka
