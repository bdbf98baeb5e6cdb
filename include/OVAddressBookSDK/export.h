#pragma once

/// Marks what the library exports; everything else stays hidden.
#define OV_EXPORT __attribute__((visibility("default")))

/// Marks what is only valid while the object, or the argument, it comes from lives: clang warns
/// where that is a temporary.
#ifdef __clang__
#define OV_LIFETIMEBOUND [[clang::lifetimebound]]
#else
#define OV_LIFETIMEBOUND
#endif
