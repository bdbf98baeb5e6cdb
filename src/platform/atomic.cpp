#include <OVAddressBookSDK/atomic.h>

#include <sys/single_threaded.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace ov::detail {

namespace {

constexpr std::size_t kStripes = 64;

struct alignas(64) Stripe {
  std::mutex mutex;
};

constinit std::array<Stripe, kStripes> stripes;

}  // namespace

std::mutex* StripeLock::stripeOf(const void* address) {
  if (__libc_single_threaded != 0) return nullptr;
  const auto number = reinterpret_cast<std::uintptr_t>(address);
  return &stripes[(number >> 4 ^ number >> 10) % kStripes].mutex;
}

}  // namespace ov::detail
