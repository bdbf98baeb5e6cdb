#pragma once

#include <string_view>

namespace ov::detail {

inline constexpr std::string_view kPersonsKey = "personDic";
inline constexpr std::string_view kGroupsKey = "groupDic";

}  // namespace ov::detail
