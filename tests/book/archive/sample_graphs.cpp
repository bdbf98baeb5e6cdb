#include "book/archive/sample_graphs.h"

#include <limits>

#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/number.h>
#include <OVAddressBookSDK/tag_manager.h>

#include "book/archive/small_book.h"
#include "support/archived_fields.h"
#include "support/values.h"

namespace {

using Any = OVList<OVObject>;
using Reals = std::numeric_limits<double>;

OVRef<OVPersonGeneral> zoe() { return (*smallBook()->personsDic())["zoë"]; }

OVRef<OVObject> numbers() {
  const auto list = Any::list();
  for (const std::int64_t each : {0LL, 255LL, 256LL, 65535LL, 65536LL, 4294967295LL, 4294967296LL,
                                  -1LL, -9223372036854775807LL, 9223372036854775807LL}) {
    list->push_back(OVNumber::numberWithInteger(each));
  }
  for (const double each : {0.0, -0.5, 1e300, Reals::infinity(), Reals::denorm_min()}) {
    list->push_back(OVNumber::numberWithDouble(each));
  }
  list->push_back(OVNumber::numberWithUnsigned(18446744073709551615U));
  list->push_back(OVNumber::numberWithBool(true));
  list->push_back(OVNumber::numberWithBool(false));
  return list;
}

OVRef<OVObject> texts() {
  return Any::list({OVString(""), OVString("a \"quoted\" \\ text\n\t"), OVString("Zoë €"),
                    OVString("😀 \U0010FFFF"), OVString("$null"), OVString("same"), OVString("same"),
                    OVString(std::string(300, 'x'))});
}

OVRef<OVObject> collections() {
  const auto shared = Any::list({OVString("shared")});
  const auto immutable = Any::immutableList();
  const auto dictionary = OVDictionary<OVObject>::dictionary(
      {{"z", shared}, {"ä", OVDictionary<OVObject>::dictionary()}, {"", immutable}});
  return Any::list({shared, dictionary, shared, immutable, Any::list()});
}

OVRef<OVObject> foreign() {
  return Any::list({foreignObject(), archivedAs("XYOther", {{"$odd", OVString("key")},
                                                            {"null", OVRef<OVObject>()},
                                                            {"number", -5}})});
}

OVRef<OVObject> tags() {
  const auto manager = OVTagManager::init();
  manager->addPersonIDForTag("p", "friends");
  manager->addPersonIDForTag("q", "friends");
  manager->addPersonIDForTag("p", "work");
  return manager;
}

/// That many labels, each an object and a text.
OVRef<OVObject> labels(int count) {
  const auto list = Any::list();
  for (int i = 0; i < count; ++i) list->push_back(labelOf(std::to_string(i)));
  return list;
}

SampleGraph datum(const std::string& name, const OVString& property) {
  return {name, [property] { return datumOf(zoe(), property); }};
}

}  // namespace

const std::vector<SampleGraph>& sampleGraphs() {
  static const auto& graphs = *new std::vector<SampleGraph>{
      {"null", [] { return OVRef<OVObject>(); }},
      {"text", [] { return OVRef<OVObject>(OVString("just a text")); }},
      {"texts", texts},
      {"numbers", numbers},
      {"data", [] { return OVRef<OVObject>(OVData::dataWithText(std::string("\0\xFF", 2))); }},
      {"date", [] { return OVDate::dateWithYearMonthDay(1969, 7, 20); }},
      {"collections", collections},
      {"label", [] { return labelOf("Home"); }},
      {"single_value", [] { return textValue("text"); }},
      {"multiple_value", [] { return zoe()->valueByPropertyName(OVProPertyPhone); }},
      {"empty_value", [] { return OVMutableMultipleValue::init(); }},
      datum("image", OVProPertyThumbnail),
      datum("person_name", OVProPertyName),
      datum("phone", OVProPertyPhone),
      datum("email", OVProPertyEmail),
      datum("instant_message", OVProPertyInstantMessage),
      datum("address", OVProPertyAddress),
      {"person", [] { return zoe(); }},
      {"group", [] { return (*smallBook()->groupsDic())["g"]; }},
      {"tags", tags},
      {"foreign", foreign},
      {"book", [] { return smallBook(); }},
      {"wide_references", [] { return labels(300); }},
      {"widest_references", [] { return labels(17000); }},
  };
  return graphs;
}
