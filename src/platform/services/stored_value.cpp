#include "platform/services/stored_value.h"

#include <cstdint>
#include <limits>
#include <type_traits>
#include <variant>

#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/number.h>
#include <OVAddressBookSDK/text.h>

namespace ov {

namespace {

using sqlite::Statement;

// Stored in the databases of every user: do not change.
enum class Kind : std::int64_t {
  kText = 1,
  kData = 2,
  kBool = 3,
  kInteger = 4,
  kUnsigned = 5,
  kReal = 6,
  kDate = 7,
};

void bindKind(Statement& statement, int parameter, Kind kind) {
  statement.bind(parameter, static_cast<std::int64_t>(kind));
}

Kind kindOf(bool /*value*/) { return Kind::kBool; }
Kind kindOf(std::int64_t /*value*/) { return Kind::kInteger; }
Kind kindOf(std::uint64_t /*value*/) { return Kind::kUnsigned; }
Kind kindOf(double /*value*/) { return Kind::kReal; }

template <class T>
void bindNumber(Statement& statement, int parameter, T value) {
  bindKind(statement, parameter, kindOf(value));
  if constexpr (std::is_integral_v<T>) {
    statement.bind(parameter + 1, static_cast<std::int64_t>(value));
  } else {
    statement.bind(parameter + 1, value);
  }
}

/// Not-a-number, for which SQLite stores null, comes back as itself.
double realAt(const Statement& row, int column) {
  return row.isNull(column) ? std::numeric_limits<double>::quiet_NaN() : row.real(column);
}

}  // namespace

bool isStorable(const OVObject& object) {
  return dynamic_cast<const detail::TextObject*>(&object) != nullptr ||
         dynamic_cast<const OVData*>(&object) != nullptr ||
         dynamic_cast<const OVNumber*>(&object) != nullptr ||
         dynamic_cast<const OVDate*>(&object) != nullptr;
}

void bindStored(Statement& statement, int parameter, const OVRef<OVObject>& object) {
  if (const auto text = cast<OVString>(object)) {
    bindKind(statement, parameter, Kind::kText);
    statement.bind(parameter + 1, text.view());
  } else if (const auto data = cast<OVData>(object)) {
    bindKind(statement, parameter, Kind::kData);
    statement.bind(parameter + 1, data->bytes());
  } else if (const auto date = cast<OVDate>(object)) {
    bindKind(statement, parameter, Kind::kDate);
    statement.bind(parameter + 1, date->timeIntervalSinceReferenceDate());
  } else if (const auto number = cast<OVNumber>(object)) {
    std::visit([&](auto value) { bindNumber(statement, parameter, value); }, number->value());
  }
}

OVRef<OVObject> storedAt(const Statement& row, int column) {
  const int value = column + 1;
  switch (static_cast<Kind>(row.integer(column))) {
    case Kind::kText:
      return OVString(row.text(value));
    case Kind::kData:
      return OVData::dataWithBytes(row.bytes(value));
    case Kind::kBool:
      return OVNumber::numberWithBool(row.integer(value) != 0);
    case Kind::kInteger:
      return OVNumber::numberWithInteger(row.integer(value));
    case Kind::kUnsigned:
      return OVNumber::numberWithUnsigned(static_cast<std::uint64_t>(row.integer(value)));
    case Kind::kReal:
      return OVNumber::numberWithDouble(realAt(row, value));
    case Kind::kDate:
      return OVDate::dateWithTimeIntervalSinceReferenceDate(realAt(row, value));
  }
  return nullptr;
}

}  // namespace ov
