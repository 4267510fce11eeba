// Mutual exclusion that needs no constructor at load time.
#pragma once

#include <pthread.h>

namespace zelka {

// std::mutex's code is in the C++ library, which phones of system 7 have in a version of 2013, and its destructor would
// run at exit. A waiting thread sleeps in the kernel (a spin lock's would keep a processor from a holder of lower
// priority). Not recursive.
class Mutex {
  public:
    constexpr Mutex() = default;
    Mutex(const Mutex&) = delete;
    Mutex& operator=(const Mutex&) = delete;
    ~Mutex() = default;

    // Holds the mutex for as long as it lives.
    class [[nodiscard]] Lock {
      public:
        explicit Lock(Mutex& mutex) : mutex_(mutex.mutex_) { pthread_mutex_lock(&mutex_); }
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;
        ~Lock() { pthread_mutex_unlock(&mutex_); }

      private:
        pthread_mutex_t& mutex_;
    };

  private:
    pthread_mutex_t mutex_ = PTHREAD_MUTEX_INITIALIZER;
};

}  // namespace zelka
