#pragma once

#include <span>
#include <string_view>

#include <OVAddressBookSDK/object.h>

namespace ov {

/// Every class of the library that archives may build. The table is beside the uppermost classes.
[[nodiscard]] std::span<const OVClass* const> libraryClasses();

namespace detail {

/// The library's own class of that name, which may be one that the archive reads or writes in a
/// form of its own; null when there is none.
[[nodiscard]] const OVClass* libraryClass(std::string_view name);

/// The class to build for a name in an archive; null when nobody registered it.
[[nodiscard]] const OVClass* registeredClass(std::string_view name);

/// How a reader finds the class to build for a name. With null for this, no class is known.
using ClassLookup = const OVClass* (*)(std::string_view name);

/// True for the library's own classes, which reach each object only through the references they
/// hold, and each reference once.
[[nodiscard]] bool isLibraryClass(const OVClass& candidate);

/// Throws `std::invalid_argument` when the class cannot be registered.
void registerHostClass(const OVClass& hostClass);

/// What the archive reads or writes in a form of its own.
extern const OVClass kTextClass;
extern const OVClass kMutableTextClass;
extern const OVClass kNumberClass;
extern const OVClass kDataClass;
extern const OVClass kMutableDataClass;
extern const OVClass kOpaqueClass;
extern const OVClass kArrayClass;
extern const OVClass kMutableArrayClass;
extern const OVClass kDictionaryClass;
extern const OVClass kMutableDictionaryClass;
extern const OVClass kDateClass;
extern const OVClass kImageClass;

}  // namespace detail

}  // namespace ov
