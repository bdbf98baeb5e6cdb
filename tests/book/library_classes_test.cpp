#include <algorithm>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/multiple_value.h>

#include "platform/archive/class_table.h"
#include "support/archive/archived_fields.h"
#include "support/printers.h"

namespace {

using testing::UnorderedElementsAre;

TEST(LibraryClasses, AreAllThatArchivesMayBuild) {
  std::vector<std::string> names;
  for (const OVClass* each : ov::libraryClasses()) names.emplace_back(each->name);
  EXPECT_THAT(names,
              UnorderedElementsAre("OVAddressBookGeneral", "OVGroupGeneral", "OVLabel",
                                   "OVMultipleValue", "OVMutableMultipleValue",
                                   "OVMutableSingleValue", "OVObjectAddress", "OVObjectEmail",
                                   "OVObjectInstantMessage", "OVObjectPersonName", "OVObjectPhone",
                                   "OVPersonGeneral", "OVSingleValue", "OVTagManager", "OVValue"));
}

TEST(LibraryClasses, MakeObjectsOfTheirOwnClass) {
  for (const OVClass* each : ov::libraryClasses()) {
    const auto object = each->make();
    ASSERT_NE(object, nullptr) << each->name;
    EXPECT_EQ(object->classForCoder(), each) << each->name;
  }
}

TEST(LibraryClasses, EmptyObjectsCanBeArchivedAndReadAgain) {
  for (const OVClass* each : ov::libraryClasses()) {
    const auto again = restored(each->make());
    ASSERT_NE(again, nullptr) << each->name;
    EXPECT_EQ(again->classForCoder(), each) << each->name;
  }
}

TEST(LibraryClasses, AbstractBookIsNotBuilt) {
  const auto object = restored(archivedAs("OVAddressBook", {}));
  EXPECT_NE(ov::cast<OVOpaqueObject>(object), nullptr);
}

/// A host's kind of single value with a field of its own.
class HostValue final : public OVMutableSingleValue {
 public:
  static const OVClass& archivedClass() {
    static const OVClass record{"HostValue", &OVMutableSingleValue::archivedClass(),
                                []() -> OVRef<OVObject> { return std::make_shared<HostValue>(); }};
    return record;
  }

  OVString remark;

  const OVClass* classForCoder() const override { return &archivedClass(); }
  void encodeWithCoder(OVKeyedArchiver& coder) const override {
    OVMutableSingleValue::encodeWithCoder(coder);
    coder.encodeObjectForKey(remark, "remark");
  }
  void initWithCoder(OVKeyedUnarchiver& coder) override {
    OVMutableSingleValue::initWithCoder(coder);
    remark = coder.decodeStringForKey("remark");
  }
};

TEST(HostClass, MayDeriveFromALibraryClass) {
  OVKeyedUnarchiver::registerClass(HostValue::archivedClass());
  const auto value = std::make_shared<HostValue>();
  value->setType(OVValueTypeNote);
  value->setValue(OVString("datum"));
  value->remark = "remark";
  EXPECT_EQ(ArchivedForm(value).classes(),
            (std::vector<OVString>{"HostValue", "OVMutableSingleValue", "OVSingleValue", "OVValue",
                                   "NSObject"}));
  const auto multiple = OVMutableMultipleValue::init();
  multiple->addValue(value);
  const auto again = restored<OVMutableMultipleValue>(multiple);
  const auto element = ov::cast<HostValue>(again->mainValue());
  ASSERT_NE(element, nullptr);
  EXPECT_EQ(element->remark, "remark");
  EXPECT_EQ(element->type(), OVValueTypeNote);
  EXPECT_EQ(ov::cast<OVString>(element->value()), "datum");
}

}  // namespace
