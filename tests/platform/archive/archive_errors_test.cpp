#include <memory>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/number.h>
#include <OVAddressBookSDK/single_value.h>

#include "support/archive/archive_builder.h"
#include "support/archive/host_node.h"

using testing::HasSubstr;

namespace host {

class Unarchivable : public OVObject {};

}  // namespace host

namespace {

using Any = OVList<OVObject>;

struct HostError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Raises when it is written.
class RaisingWriter : public HostNode {
 public:
  void encodeWithCoder(OVKeyedArchiver& coder) const override {
    HostNode::encodeWithCoder(coder);
    throw HostError("cannot be written");
  }
};

/// Raises when it is made or read.
class Raising : public OVObject {
 public:
  enum When { never, making, reading, afterReading };
  static inline When when = never;

  const OVClass* classForCoder() const override { return &record(); }
  void encodeWithCoder(OVKeyedArchiver& coder) const override {
    coder.encodeObjectForKey(next, "next");
  }
  void initWithCoder(OVKeyedUnarchiver& coder) override {
    if (when == reading) throw HostError("cannot be read");
    next = coder.decodeObjectForKey("next");
    if (when == afterReading) throw HostError("cannot be used");
  }

  static const OVClass& record() {
    static const OVClass record{"Raising", nullptr, []() -> OVRef<OVObject> {
                                  if (when == making) throw HostError("cannot be made");
                                  return std::make_shared<Raising>();
                                }};
    return record;
  }

  OVRef<OVObject> next;
};

std::string messageOf(const OVRef<OVObject>& root) {
  try {
    static_cast<void>(archiveOf(root));
    return "accepted";
  } catch (const std::invalid_argument& error) {
    return error.what();
  }
}

TEST(ArchiveErrors, AnObjectThatCannotBeArchivedIsNamed) {
  const auto message = messageOf(std::make_shared<host::Unarchivable>());
  EXPECT_THAT(message, HasSubstr("host::Unarchivable"));
  EXPECT_THAT(message, HasSubstr("classForCoder"));
}

TEST(ArchiveErrors, AnObjectThatCannotBeArchivedIsFoundAnywhere) {
  const OVRef<OVObject> bad = std::make_shared<host::Unarchivable>();
  const auto value = OVMutableSingleValue::init();
  value->setValue(bad);
  const auto node = HostNode::node();
  node->next = bad;
  for (const OVRef<OVObject>& root : std::initializer_list<OVRef<OVObject>>{
           Any::list({bad}), OVDictionary<OVObject>::dictionary({{"bad", bad}}), value, node}) {
    EXPECT_THAT(messageOf(root), HasSubstr("host::Unarchivable"));
  }
}

TEST(ArchiveErrors, WhatAHostRaisesWhileWritingReachesTheCaller) {
  const int before = HostNode::living();
  {
    const auto root = HostNode::node();
    root->others = {std::make_shared<RaisingWriter>(), HostNode::node()};
    EXPECT_THROW(static_cast<void>(archiveOf(root)), HostError);
  }
  EXPECT_EQ(HostNode::living(), before);
}

class ArchiveErrorsWhileReading : public testing::TestWithParam<Raising::When> {};

TEST_P(ArchiveErrorsWhileReading, ReachTheCallerAndLeaveNothingBehind) {
  OVKeyedUnarchiver::registerClass(Raising::record());
  Raising::when = Raising::never;
  const auto raising = std::make_shared<Raising>();
  const auto node = HostNode::node("node");
  // Rings through classes of the library, which are undone.
  const auto list = Any::list({node, raising});
  list.push_back(list);
  raising->next = Any::list({raising, list});
  const auto data = archiveOf(list);
  list.clear();
  raising->next = nullptr;

  const int before = HostNode::living();
  Raising::when = GetParam();
  try {
    static_cast<void>(unarchived(data));
    FAIL();
  } catch (const HostError& error) {
    EXPECT_THAT(error.what(), HasSubstr("cannot be"));
  }
  EXPECT_EQ(HostNode::living(), before);
  Raising::when = Raising::never;
}

INSTANTIATE_TEST_SUITE_P(, ArchiveErrorsWhileReading,
                         testing::Values(Raising::making, Raising::reading, Raising::afterReading),
                         [](const auto& when) {
                           return when.param == Raising::making    ? "Making"
                                  : when.param == Raising::reading ? "Reading"
                                                                   : "AfterReading";
                         });

/// Raises on the first field that it cannot use, and goes on.
class Patient : public OVObject {
 public:
  const OVClass* classForCoder() const override { return &record(); }
  void initWithCoder(OVKeyedUnarchiver& coder) override {
    try {
      static_cast<void>(coder.decodeObjectForKey("bad"));
    } catch (const OVInvalidArchive&) {
      wasBad = true;
    }
    good = coder.decodeStringForKey("good");
    number = coder.decodeIntegerForKey("number");
  }

  static const OVClass& record() {
    static const OVClass record{"Patient", nullptr,
                                [] { return OVRef<OVObject>(std::make_shared<Patient>()); }};
    return record;
  }

  bool wasBad = false;
  OVString good;
  std::int64_t number = 0;
};

TEST(ArchiveErrors, AHostMayGoOnAfterABadField) {
  OVKeyedUnarchiver::registerClass(Patient::record());
  ArchiveBuilder archive;
  const auto bad = archive.object(
      "XYUnknown",
      {{"bad", archive.to(archive.arrayOf("NSArray", {999}))}, {"number", archive.integer(1)}});
  const auto patient = archive.object("Patient", {{"bad", archive.to(bad)},
                                                  {"good", archive.to(archive.addText("good"))},
                                                  {"number", archive.integer(7)}});
  const auto read = unarchived<Patient>(archive.archive(patient));
  EXPECT_TRUE(read->wasBad);
  EXPECT_EQ(read->good, "good");
  EXPECT_EQ(read->number, 7);
}

/// An object inside a person of a book, as hosts put them there by mistake.
OVRef<OVAddressBookGeneral> bookWith(const OVRef<OVObject>& datum) {
  const auto phones = OVMutableMultipleValue::init();
  for (const OVRef<OVObject>& each : {OVRef<OVObject>(OVString("1")), datum}) {
    const auto value = OVMutableSingleValue::init();
    value->setValue(each);
    phones->addValue(value);
  }
  const auto book = OVAddressBookGeneral::init();
  for (const char* ID : {"p-0", "p-1", "p-2"}) {
    const auto person = OVPersonGeneral::initWithID(ID);
    if (person->ID() == "p-1") person->setValueByPropertyName(phones, OVProPertyPhone);
    book->addPerson(person);
  }
  return book;
}

TEST(ArchiveErrors, AnObjectThatCannotBeArchivedIsFoundByPersonPropertyAndPosition) {
  const auto book = bookWith(std::make_shared<host::Unarchivable>());
  EXPECT_THAT(messageOf(book), HasSubstr("at personDic[\"p-1\"].Phone.valueArray[1].value"));
  EXPECT_THAT(messageOf(book), HasSubstr("host::Unarchivable"));
}

TEST(ArchiveErrors, AnObjectThatCannotBeArchivedIsFoundInsideListsAndHostsObjects) {
  const auto node = HostNode::node("n");
  node->next = OVString("x");
  node->others = {OVString("y"), std::make_shared<host::Unarchivable>()};
  EXPECT_THAT(messageOf(node), HasSubstr("at others[1]:"));
  EXPECT_THAT(messageOf(bookWith(Any::list({OVString("a"), node}))),
              HasSubstr("at personDic[\"p-1\"].Phone.valueArray[1].value[1].others[1]:"));
  EXPECT_THAT(messageOf(Any::list({std::make_shared<host::Unarchivable>()})), HasSubstr("at [0]:"));
}

TEST(ArchiveErrors, OfALongWayTheMiddleIsLeftOut) {
  OVRef<OVObject> chain = std::make_shared<host::Unarchivable>();
  for (int i = 0; i < 100000; ++i) chain = Any::list({chain});
  const auto message = messageOf(chain);
  EXPECT_THAT(message, HasSubstr("[0] ... [0]"));
  EXPECT_LT(message.size(), 500U);
}

}  // namespace
