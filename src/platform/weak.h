// References that do not keep their object alive.
#pragma once

#include "src/platform/object.h"

extern "C" {
id objc_initWeak(id* slot, id object);
id objc_loadWeakRetained(id* slot);
void objc_moveWeak(id* to, id* from);
void objc_destroyWeak(id* slot);
}

// Becomes nil when the object goes. Any thread.
template <class T>
class WeakReference {
  public:
    explicit WeakReference(T value) { objc_initWeak(&slot_, value.object); }
    WeakReference(WeakReference&& other) noexcept { objc_moveWeak(&slot_, &other.slot_); }
    WeakReference(const WeakReference&) = delete;
    WeakReference& operator=(const WeakReference&) = delete;
    ~WeakReference() { objc_destroyWeak(&slot_); }

    // The object, kept alive by the answer (+1), or nil.
    Owned<T> get() const { return Owned<T>::adopt(as<T>(NSObject{objc_loadWeakRetained(&slot_)})); }

  private:
    mutable id slot_ = nullptr;
};
