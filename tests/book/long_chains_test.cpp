#include <gtest/gtest.h>

#include <OVAddressBookSDK/group_general.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_general.h>

#include "support/archive/archived_fields.h"
#include "support/values.h"

namespace {

/// Hangs every object on the next one and releases the last: a stack frame for each would be far
/// too many.
template <class Hang>
void expectToFallApart(Hang hang) {
  constexpr int kLength = 100000;
  OVRef<OVObject> chain = OVString("the end");
  const OVRef<OVObject> first = hang(chain);
  chain = first;
  for (int i = 1; i < kLength; ++i) chain = hang(chain);
  const std::weak_ptr<OVObject> last = chain;
  chain.reset();
  EXPECT_TRUE(last.expired());
  EXPECT_EQ(first.use_count(), 1);
}

TEST(LongChain, OfPersonExtensionsIsDestroyedWithoutDeepRecursion) {
  expectToFallApart([](const OVRef<OVObject>& next) {
    auto person = OVPersonGeneral::initWithID("p");
    person->setExtend(next);
    return person;
  });
}

TEST(LongChain, OfGroupExtensionsIsDestroyedWithoutDeepRecursion) {
  expectToFallApart([](const OVRef<OVObject>& next) {
    auto group = OVGroupGeneral::init();
    group->setExtend(next);
    return group;
  });
}

TEST(LongChain, OfPersonsInValuesIsDestroyedWithoutDeepRecursion) {
  expectToFallApart([](const OVRef<OVObject>& next) {
    auto person = OVPersonGeneral::initWithID("p");
    person->setValueByPropertyName(valueOf(OVValueTypeString, next), OVProPertyOther);
    return person;
  });
}

TEST(LongChain, OfMultipleValuesIsDestroyedWithoutDeepRecursion) {
  expectToFallApart([](const OVRef<OVObject>& next) {
    auto multiple = OVMutableMultipleValue::init();
    multiple->addValue(valueOf(OVValueTypeString, next));
    return multiple;
  });
}

/// The same for what an archive may hold in a place where the interface takes no such object.
template <class Hang>
void expectRestoredToFallApart(Hang hang) {
  constexpr int kLength = 100000;
  OVRef<OVObject> chain = foreignObject();
  for (int i = 0; i < kLength; ++i) chain = hang(chain);
  auto again = restored(chain);
  EXPECT_NE(again->classForCoder(), nullptr);
  const std::weak_ptr<OVObject> last = again;
  again.reset();
  EXPECT_TRUE(last.expired());
}

TEST(LongChain, OfPersonsInPlaceOfValuesIsDestroyedWithoutDeepRecursion) {
  expectRestoredToFallApart([](const OVRef<OVObject>& next) {
    return archivedAs("OVPersonGeneral", {{"Phone", next}});
  });
}

TEST(LongChain, OfMultipleValuesInEachOtherIsDestroyedWithoutDeepRecursion) {
  expectRestoredToFallApart([](const OVRef<OVObject>& next) {
    return archivedAs("OVMutableMultipleValue", {{"valueArray", OVList<OVObject>::list({next})}});
  });
}

TEST(LongChain, OfValuesInPlaceOfLabelsIsDestroyedWithoutDeepRecursion) {
  expectRestoredToFallApart([](const OVRef<OVObject>& next) {
    return archivedAs("OVMutableSingleValue", {{"label", next}});
  });
}

TEST(LongChain, OfMainValuesOutsideTheirListsIsDestroyedWithoutDeepRecursion) {
  expectToFallApart([](const OVRef<OVObject>& next) {
    auto multiple = OVMutableMultipleValue::init();
    multiple->setMainValue(valueOf(OVValueTypeString, next));
    return multiple;
  });
}

TEST(LongChain, OfObjectsInPlaceOfTextsListsAndDictionariesIsDestroyedWithoutDeepRecursion) {
  for (const auto& [className, key] : {std::pair{"OVLabel", "name"},
                                       {"OVObjectPersonName", "middle"},
                                       {"OVObjectPhone", "phoneNumber"},
                                       {"OVObjectEmail", "email"},
                                       {"OVObjectInstantMessage", "userName"},
                                       {"OVObjectInstantMessage", "serverName"},
                                       {"OVObjectAddress", "valueDic"},
                                       {"OVObjectAddress", "countryCode"},
                                       {"OVPersonGeneral", "ID"},
                                       {"OVGroupGeneral", "title"},
                                       {"OVGroupGeneral", "persons"},
                                       {"OVAddressBookGeneral", "groupDic"},
                                       {"OVMutableMultipleValue", "valueArray"},
                                       {"OVSingleValue", "label"}}) {
    SCOPED_TRACE(std::string(className) + "." + key);
    expectRestoredToFallApart([name = className, field = key](const OVRef<OVObject>& next) {
      return archivedAs(name, {{field, next}});
    });
  }
}

}  // namespace
