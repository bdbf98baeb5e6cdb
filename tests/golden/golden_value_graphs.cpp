#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/phone.h>

#include "golden/golden_graphs.h"
#include "support/archive/archived_fields.h"
#include "support/values.h"

namespace {

using Any = OVList<OVObject>;

OVRef<OVObject> labels() {
  const auto full = OVLabel::init();
  full->setName("home-1");
  full->setDisplayName("Zuhause");
  const auto unnamed = OVLabel::init();
  unnamed->setDisplayName("自宅");
  return Any::list({full, full, unnamed, OVLabel::init()});
}

/// More objects than UIDs of one byte can number.
OVRef<OVObject> manyLabels() {
  const auto list = Any::list();
  for (int i = 0; i < 150; ++i) list.push_back(labelOf(std::to_string(i)));
  return list;
}

OVRef<OVObject> oneLabel() {
  const auto label = OVLabel::init();
  label->setName("Home");
  return label;
}

OVRef<OVObject> readOnlyValues() {
  return Any::list({OVValue::init(), OVSingleValue::init(), OVMultipleValue::init(),
                    restored(archivedAs("OVValue", {{"type", 7}}))});
}

/// A value of every type, and types that nobody has given a meaning.
OVRef<OVObject> singleValues() {
  const auto label = labelOf("one label");
  const auto name = OVObjectPersonName::initWithFirstMiddleLast("Ada", nullptr, nullptr);
  return Any::list({valueOf(OVValueTypeString, OVString("text"), label),
                    valueOf(OVValueTypeDate, OVDate::dateWithYearMonthDay(1815, 12, 10), label),
                    valueOf(OVValueTypeImage, goldenImage(), label),
                    valueOf(OVValueTypePhone, OVObjectPhone::initWithPhoneNumber("1"), label),
                    valueOf(OVValueTypeEmail, OVObjectEmail::initWithEmail("a@example.org"), label),
                    valueOf(OVValueTypePersonName, name, label),
                    valueOf(OVValueTypeAddress, goldenAddress(), label),
                    valueOf(OVValueTypeTags, OVList<OVString>::list({"friends"}), label),
                    valueOf(OVValueTypeNote, OVString("a note"), label),
                    valueOf(OVValueTypeMultiple, OVMutableMultipleValue::init(), label),
                    valueOf(OVValueTypeInstantMessage, goldenAccount(), label),
                    valueOf(static_cast<OVValueType>(-1), OVString("text"), OVLabel::init()),
                    valueOf(static_cast<OVValueType>(0x7FFFFFFF), nullptr, label),
                    valueOf(OVValueTypeString, nullptr)});
}

OVRef<OVMutableMultipleValue> multipleValue(const OVString& prefix) {
  auto value = OVMutableMultipleValue::init();
  const auto label = labelOf("shared");
  for (const char* each : {"1", "2", "3"}) {
    value->addValue(
        valueOf(OVValueTypePhone, OVObjectPhone::initWithPhoneNumber(prefix.str() + each), label));
  }
  return value;
}

OVRef<OVObject> multipleValues() {
  const auto second = multipleValue("a");
  second->setMainValue(second->valueAtIndex(1));
  const auto twice = multipleValue("b");
  twice->addValue(twice->valueAtIndex(0));
  return Any::list({second, twice, OVMutableMultipleValue::init()});
}

/// A multiple value whose main value is none of its elements, which an archive does not tell.
OVRef<OVObject> lostMainValue() {
  const auto value = multipleValue("c");
  value->setMainValue(textValue("elsewhere"));
  return value;
}

/// A value whose datum is the multiple value that it stands in, and one that is its own datum.
OVRef<OVObject> ring() {
  const auto all = OVMutableMultipleValue::init();
  const auto own = textValue("replaced");
  all->addValue(own);
  all->addValue(valueOf(OVValueTypeString, all, labelOf("back")));
  own->setValue(own);
  return all;
}

}  // namespace

std::vector<GoldenGraph> goldenValueGraphs() {
  return {{"labels", labels},
          {"many_labels", manyLabels},
          {"one_label", oneLabel},
          {"read_only_values", readOnlyValues},
          {"single_values", singleValues},
          {"multiple_values", multipleValues},
          {"lost_main_value", lostMainValue},
          {"ring", ring}};
}
