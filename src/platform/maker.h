#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <utility>

#include <OVAddressBookSDK/object.h>

namespace ov::detail {

/// Makes objects whose constructors are not public, in one allocation each.
struct Maker {
  template <class T>
  struct Allocator {
    using value_type = T;
    Allocator() = default;
    template <class U>
    Allocator(const Allocator<U>&) {}  // NOLINT(google-explicit-constructor)
    T* allocate(std::size_t n) { return std::allocator<T>().allocate(n); }
    void deallocate(T* p, std::size_t n) { std::allocator<T>().deallocate(p, n); }
    template <class U, class... Arguments>
    void construct(U* place, Arguments&&... arguments) {
      Maker::construct(place, std::forward<Arguments>(arguments)...);
    }
    template <class U>
    bool operator==(const Allocator<U>&) const {
      return true;
    }
  };

  template <class T, class... Arguments>
  static OVRef<T> make(Arguments&&... arguments) {
    return std::allocate_shared<T>(Allocator<T>(), std::forward<Arguments>(arguments)...);
  }

  /// `OVClass::make` of T.
  template <class T>
  static OVRef<OVObject> empty() {
    return make<T>();
  }

 private:
  template <class T, class... Arguments>
  static void construct(T* place, Arguments&&... arguments) {
    ::new (static_cast<void*>(place)) T(std::forward<Arguments>(arguments)...);
  }
};

}  // namespace ov::detail
