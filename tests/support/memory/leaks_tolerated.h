#pragma once

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define OV_TEST_LEAKS_ARE_WATCHED
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define OV_TEST_LEAKS_ARE_WATCHED
#endif

#ifdef OV_TEST_LEAKS_ARE_WATCHED
#include <sanitizer/lsan_interface.h>
#endif

/// While it lives, what this thread allocates is not taken for a leak. For objects that refer to
/// each other in a ring, which counted references cannot release.
class LeaksTolerated {
 public:
  LeaksTolerated() {
#ifdef OV_TEST_LEAKS_ARE_WATCHED
    __lsan_disable();
#endif
  }
  LeaksTolerated(const LeaksTolerated&) = delete;
  LeaksTolerated& operator=(const LeaksTolerated&) = delete;
  ~LeaksTolerated() {
#ifdef OV_TEST_LEAKS_ARE_WATCHED
    __lsan_enable();
#endif
  }
};
