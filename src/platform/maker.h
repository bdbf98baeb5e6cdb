#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <utility>

#include <OVAddressBookSDK/object.h>

#include "platform/object_arena.h"

namespace ov::detail {

/// Makes objects whose constructors are not public, in one allocation each.
struct Maker {
  struct Heap {
    template <class T>
    static T* allocate(std::size_t n) {
      return std::allocator<T>().allocate(n);
    }
    template <class T>
    static void release(T* p, std::size_t n) {
      std::allocator<T>().deallocate(p, n);
    }
  };
  struct Arena {
    template <class T>
    static T* allocate(std::size_t n) {
      static_assert(alignof(T) <= ObjectArena::kAlignment);
      static_assert(sizeof(T) <= ObjectArena::kLargest);
      return static_cast<T*>(ObjectArena::current()->allocate(n * sizeof(T)));
    }
    template <class T>
    static void release(T* p, std::size_t n) {
      ObjectArena::release(p, n * sizeof(T));
    }
  };

  template <class T, class Memory>
  struct Allocator {
    using value_type = T;
    template <class U>
    struct rebind {
      using other = Allocator<U, Memory>;
    };
    Allocator() = default;
    template <class U>
    Allocator(const Allocator<U, Memory>&) {}  // NOLINT(google-explicit-constructor)
    T* allocate(std::size_t n) { return Memory::template allocate<T>(n); }
    void deallocate(T* p, std::size_t n) { Memory::template release<T>(p, n); }
    template <class U, class... Arguments>
    void construct(U* place, Arguments&&... arguments) {
      Maker::construct(place, std::forward<Arguments>(arguments)...);
    }
    template <class U>
    bool operator==(const Allocator<U, Memory>&) const {
      return true;
    }
  };

  template <class T, class... Arguments>
  static OVRef<T> make(Arguments&&... arguments) {
    return std::allocate_shared<T>(Allocator<T, Heap>(), std::forward<Arguments>(arguments)...);
  }

  /// In the thread's arena, if it has one.
  template <class T, class... Arguments>
  static std::shared_ptr<T> restore(Arguments&&... arguments) {
    if (ObjectArena::current() == nullptr) return make<T>(std::forward<Arguments>(arguments)...);
    return std::allocate_shared<T>(Allocator<T, Arena>(), std::forward<Arguments>(arguments)...);
  }

  /// `OVClass::make` of T.
  template <class T>
  static OVRef<OVObject> empty() {
    return restore<T>();
  }

 private:
  template <class T, class... Arguments>
  static void construct(T* place, Arguments&&... arguments) {
    ::new (static_cast<void*>(place)) T(std::forward<Arguments>(arguments)...);
  }
};

}  // namespace ov::detail
