// Shared places that are read and changed from any thread without a lock: what was taken out of one is destroyed only
// when nobody can be looking at it any more.
#pragma once

#include <atomic>

// What waits for its destruction. Whatever is kept in a shared place derives from it.
struct Retired {
    void (*destroy)(Retired* self);
    Retired* nextRetired = nullptr;
};

// Counts who is looking. The order of all of this and of what the places themselves do is the one total order of
// sequential consistency: a reader that is not counted yet when something is found uncounted-for cannot find it any
// more.
class Reclaimer {
  public:
    // For as long as it lives, what this thread finds in the shared places stays. Keep it short; it may be nested.
    class Reading {
      public:
        explicit Reading(Reclaimer& reclaimer) : reclaimer_(reclaimer) { reclaimer_.readers_.fetch_add(1); }
        Reading(const Reading&) = delete;
        Reading& operator=(const Reading&) = delete;
        ~Reading() {
            if (reclaimer_.readers_.fetch_sub(1) == 1) reclaimer_.destroyRetired();
        }

      private:
        Reclaimer& reclaimer_;
    };

    // Hands over what no shared place holds any longer; only while reading. It is destroyed, on whichever thread, when
    // the last reader of now has left.
    void retire(Retired* item) { putBack(item, item); }

  private:
    void putBack(Retired* first, Retired* last) {
        Retired* known = retired_.load();
        do {
            last->nextRetired = known;
        } while (!retired_.compare_exchange_weak(known, first));
    }

    void destroyRetired() {
        while (retired_.load() != nullptr) {
            Retired* list = retired_.exchange(nullptr);
            if (list == nullptr) return;
            // Taken first, counted after: who starts to read from here on cannot find what is in the list.
            if (readers_.load() == 0) {
                destroyAll(list);
                continue;
            }
            Retired* last = list;
            while (last->nextRetired != nullptr) last = last->nextRetired;
            putBack(list, last);
            // The reader that was counted finds the list when it leaves, unless it left in between.
            if (readers_.load() != 0) return;
        }
    }

    static void destroyAll(Retired* list) {
        while (list != nullptr) {
            Retired* item = list;
            list = item->nextRetired;
            item->destroy(item);
        }
    }

    std::atomic<long> readers_{0};
    std::atomic<Retired*> retired_{nullptr};
};
