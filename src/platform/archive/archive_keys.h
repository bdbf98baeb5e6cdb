#pragma once

#include <cstdint>
#include <string_view>

/// Texts of the archive's layout. Stored in files: do not change.
namespace ov::detail::archive {

inline constexpr std::string_view kVersion = "$version";
inline constexpr std::string_view kArchiver = "$archiver";
inline constexpr std::string_view kTop = "$top";
inline constexpr std::string_view kObjects = "$objects";
inline constexpr std::string_view kRoot = "root";
inline constexpr std::string_view kNull = "$null";
inline constexpr std::string_view kClass = "$class";
inline constexpr std::string_view kClassName = "$classname";
inline constexpr std::string_view kClasses = "$classes";
inline constexpr std::string_view kClassHints = "$classhints";

inline constexpr std::int64_t kVersionNumber = 100000;
inline constexpr std::string_view kArchiverName = "NSKeyedArchiver";
inline constexpr std::string_view kRootClass = "NSObject";

/// Keys of the classes that every archive knows.
inline constexpr std::string_view kArrayObjects = "NS.objects";
inline constexpr std::string_view kDictionaryKeys = "NS.keys";
inline constexpr std::string_view kStringText = "NS.string";
inline constexpr std::string_view kDataBytes = "NS.data";

/// Marks keys of the layout; a class's own key that begins with it is written with one more.
inline constexpr char kReserved = '$';

}  // namespace ov::detail::archive
