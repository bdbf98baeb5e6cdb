#include "address/layouts.h"

#include "address/code_map.h"
#include "address/layout_table.h"

namespace ov::detail {
namespace {

// What precedes the separator, which is removed together with it.
constexpr std::string_view nextPart(std::string_view& text, std::string_view separator) {
  const std::size_t end = text.find(separator);
  const std::string_view part = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + separator.size());
  return part;
}

constexpr FieldNumber fieldOfWord(std::string_view word) {
  for (std::size_t i = 0; i < kFieldTable.size(); ++i) {
    if (kFieldTable[i].nameText.substr(FieldNames::kPrefix.size()) == word)
      return static_cast<FieldNumber>(i);
  }
  throw "no field has this word";
}

constexpr Layout layoutOfRow(const LayoutRow& row) {
  Layout layout;
  for (std::string_view lines = row.lines; !lines.empty();) {
    LayoutLine& line = layout.add();
    for (std::string_view words = nextPart(lines, " / "); !words.empty();)
      line.add(fieldOfWord(nextPart(words, " + ")));
  }
  return layout;
}

// Both tables are made, and checked, by the compiler.
constexpr std::array kLayouts = []() {
  std::array<Layout, kLayoutTable.size()> layouts;
  for (std::size_t i = 0; i < layouts.size(); ++i) layouts[i] = layoutOfRow(kLayoutTable[i]);
  return layouts;
}();

constexpr CodeMap kLayoutOfCode = []() {
  CodeMap map;
  for (std::size_t i = 0; i < kLayoutTable.size(); ++i) {
    for (std::string_view codes = kLayoutTable[i].codes; !codes.empty();)
      if (!map.add(nextPart(codes, " "), i)) throw "a code is there twice";
  }
  return map;
}();

}  // namespace

const Layout& layoutOf(std::string_view countryCode) {
  return kLayouts[kLayoutOfCode.find(countryCode).value_or(0)];
}

}  // namespace ov::detail
