#pragma once

#include <cstddef>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/data.h>

enum class Classes { registered, none };

/// Whether that many bytes of memory are enough to read the archive and to release it again,
/// whether it is accepted or refused.
testing::AssertionResult readsInMemory(const OVRef<OVData>& block, Classes known,
                                       std::size_t bytes);
