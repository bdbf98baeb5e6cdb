#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/opaque_object.h>
#include <OVAddressBookSDK/single_value.h>

#include "support/archive/host_node.h"
#include "support/printers.h"

namespace {

using Any = OVList<OVObject>;

OVRef<OVDate> newDate() { return OVDate::dateWithTimeIntervalSinceReferenceDate(1); }

TEST(ArchiveIdentity, ASharedObjectComesBackAsOne) {
  const auto date = newDate();
  const auto list = unarchived<Any>(archiveOf(Any::list({date, newDate(), date})));
  EXPECT_EQ(list[0], list[2]);
  EXPECT_NE(list[0], list[1]);
}

TEST(ArchiveIdentity, AnObjectThatOnlyTheGraphHoldsIsSharedToo) {
  const auto list = Any::list();
  {
    const auto label = OVLabel::init();
    for (int i = 0; i < 3; ++i) {
      auto value = OVMutableSingleValue::init();
      value->setLabel(label);
      list.push_back(std::move(value));
    }
  }
  const auto read = unarchived<OVList<OVSingleValue>>(archiveOf(list));
  ASSERT_NE(read[0]->label(), nullptr);
  EXPECT_EQ(read[0]->label(), read[1]->label());
  EXPECT_EQ(read[0]->label(), read[2]->label());
}

TEST(ArchiveIdentity, TextsShareTheirCharacters) {
  const auto list = unarchived<OVList<OVString>>(
      archiveOf(Any::list({OVString("equal"), OVString("equal"), OVString("other")})));
  EXPECT_TRUE(list[0].isSame(list[1]));
  EXPECT_FALSE(list[0].isSame(list[2]));
}

TEST(ArchiveIdentity, ATextReadInTwoWaysIsOneObject) {
  const auto node = HostNode::node("text");
  node->next = node->name;
  const auto read = unarchived<HostNode>(archiveOf(node));
  EXPECT_TRUE(ov::cast<OVString>(read->next).isSame(read->name));
}

TEST(ArchiveIdentity, TwoHandlesOnOneListAreOneList) {
  const auto any = Any::list({OVString("a")});
  const auto texts = ov::cast<OVList<OVString>>(any);
  const auto read = unarchived<Any>(archiveOf(Any::list({any, texts})));
  EXPECT_EQ(read[0], read[1]);
}

TEST(ArchiveIdentity, TwoHandlesOnOneListAreOneListWhenOnlyTheGraphHoldsThem) {
  const auto holder = Any::list();
  {
    const auto any = Any::list({OVString("a")});
    holder.push_back(any);
    holder.push_back(ov::cast<OVList<OVString>>(any));
  }
  const auto read = unarchived<Any>(archiveOf(holder));
  EXPECT_EQ(read[0], read[1]);
}

TEST(ArchiveIdentity, TwoHandlesOnOneDictionaryAreOneDictionary) {
  const auto any = OVDictionary<OVObject>::dictionary({{"a", OVString("1")}});
  const auto texts = ov::cast<OVDictionary<OVString>>(any);
  const auto read = unarchived<Any>(archiveOf(Any::list({texts, any})));
  EXPECT_EQ(read[0], read[1]);
}

TEST(ArchiveIdentity, EqualListsMadeApartStayApart) {
  const auto read = unarchived<Any>(archiveOf(Any::list({Any::list(), Any::list()})));
  EXPECT_NE(read[0], read[1]);
}

TEST(ArchiveIdentity, ARingThroughAHostClassSurvives) {
  const auto first = HostNode::node("first");
  const auto second = HostNode::node("second");
  first->next = second;
  second->next = first;
  const auto read = unarchived<HostNode>(archiveOf(first));
  const auto next = ov::cast<HostNode>(read->next);
  EXPECT_EQ(next->name, "second");
  EXPECT_EQ(next->next, read);
  next->next = nullptr;
  second->next = nullptr;
}

TEST(ArchiveIdentity, AnObjectMayReferToItself) {
  const auto node = HostNode::node("self");
  node->next = node;
  node->others = {node, node};
  const auto read = unarchived<HostNode>(archiveOf(node));
  EXPECT_EQ(read->next, read);
  EXPECT_EQ(read->others[1], read);
  for (const auto& each : {node, read}) {
    each->next = nullptr;
    each->others.clear();
  }
}

TEST(ArchiveIdentity, AListMayHoldItself) {
  const auto list = Any::list();
  list.push_back(list);
  const auto read = unarchived<Any>(archiveOf(list));
  EXPECT_EQ(read[0], read.object());
  list.clear();
  read.clear();
}

/// Hands out an object that nobody else refers to, more than once.
class Reporter : public OVObject {
 public:
  explicit Reporter(bool promisesNotTo = false) : promisesNotTo_(promisesNotTo) {}

  const OVClass* classForCoder() const override {
    static constexpr OVClass record{"Reporter", nullptr, nullptr};
    static constexpr OVClass promising{"Reporter", nullptr, nullptr, nullptr, true};
    return promisesNotTo_ ? &promising : &record;
  }
  void encodeWithCoder(OVKeyedArchiver& coder) const override {
    coder.encodeObjectForKey(only_, "a");
    coder.encodeObjectForKey(only_, "b");
    coder.encodeListForKey(std::vector<OVRef<OVObject>>{OVRef<OVObject>(only_)}, "c");
  }

 private:
  OVRef<OVObject> only_ = newDate();
  bool promisesNotTo_;
};

/// What is in the fields of the object that is read back.
std::vector<OVRef<OVObject>> fieldsOf(const OVRef<OVObject>& object) {
  std::vector<OVRef<OVObject>> fields;
  const auto read = ov::cast<OVOpaqueObject>(unarchived(archiveOf(object)));
  for (const auto& field : read->fields()) {
    fields.push_back(std::get<OVOpaqueValue::Reference>(field.value.content).object);
  }
  return fields;
}

TEST(ArchiveIdentity, AHostMayHandOutItsOnlyReferenceTwice) {
  const auto fields = fieldsOf(std::make_shared<Reporter>());
  ASSERT_NE(fields[0], nullptr);
  EXPECT_EQ(fields[0], fields[1]);
  EXPECT_EQ((ov::cast<Any>(fields[2]))[0], fields[0]);
}

TEST(ArchiveIdentity, AHostThatPromisesNotToIsTakenAtItsWord) {
  const auto fields = fieldsOf(std::make_shared<Reporter>(true));
  ASSERT_NE(fields[0], nullptr);
  EXPECT_NE(fields[0], fields[1]);
}

/// Promises to hold what it encodes, and does not; its keys are not literals either.
class Forgetful : public OVObject {
 public:
  const OVClass* classForCoder() const override {
    static constexpr OVClass record{"Forgetful", nullptr, nullptr, nullptr, true};
    return &record;
  }
  void encodeWithCoder(OVKeyedArchiver& coder) const override {
    for (int i = 0; i < 3; ++i) {
      const auto label = OVLabel::init();
      label->setName(std::to_string(i));
      coder.encodeObjectForKey(label, "label" + std::to_string(i));
    }
  }
};

TEST(ArchiveIdentity, AHostThatBreaksItsPromiseIsArchivedAllTheSame) {
  const auto fields = fieldsOf(std::make_shared<Forgetful>());
  ASSERT_EQ(fields.size(), 3U);
  for (int i = 0; i < 3; ++i) {
    const auto label = ov::cast<OVLabel>(fields[static_cast<std::size_t>(i)]);
    EXPECT_EQ(label->name(), std::to_string(i));
  }
}

/// Archives as the class that it derives from, with an object made for the purpose.
class HostValue : public OVMutableSingleValue {
 public:
  void encodeWithCoder(OVKeyedArchiver& coder) const override {
    const auto label = OVLabel::init();
    label->setName("made for the purpose");
    coder.encodeObjectForKey(label, "label");
    coder.encodeObjectForKey(only_, "value");
    coder.encodeObjectForKey(only_, "again");
  }

 private:
  OVRef<OVObject> only_ = newDate();
};

TEST(ArchiveIdentity, AHostMayDeriveFromAClassOfTheLibrary) {
  const auto data = archiveOf(Any::list({std::make_shared<HostValue>()}));
  const auto value = (unarchived<OVList<OVSingleValue>>(data))[0];
  EXPECT_EQ(value->label()->name(), "made for the purpose");
  const auto fields =
      (ov::cast<OVList<OVOpaqueObject>>(OVKeyedUnarchiver::unarchiveOpaqueObjectWithData(data)))[0]
          ->fields();
  ASSERT_EQ(fields.size(), 3U);
  EXPECT_EQ(std::get<OVOpaqueValue::Reference>(fields[1].value.content).object,
            std::get<OVOpaqueValue::Reference>(fields[2].value.content).object);
}

TEST(ArchiveIdentity, TheSameGraphGivesTheSameBytes) {
  const auto graph = [] {
    const auto node = HostNode::node("node");
    node->others = {OVString("a"), newDate(), Any::list({OVString("b")}),
                    OVDictionary<OVString>::dictionary({{"z", "1"}, {"a", "2"}})};
    node->next = node->others[1];
    return node;
  };
  const auto data = archiveOf(graph());
  EXPECT_TRUE(archiveOf(graph())->text() == data->text());
  EXPECT_TRUE(archiveOf(unarchived(data))->text() == data->text());
}

}  // namespace
