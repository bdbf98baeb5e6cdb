#pragma once

/// Marks what the library exports; everything else stays hidden.
#define OV_EXPORT __attribute__((visibility("default")))
