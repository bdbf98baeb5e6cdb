#include <OVAddressBookSDK/OVAddressBookSDK.h>

#include <iostream>
#include <utility>

/// When to call somebody back, and why.
class Reminder : public OVObject {
 public:
  Reminder() = default;
  Reminder(OVRef<OVDate> date, OVString reason)
      : date_(std::move(date)), reason_(std::move(reason)) {}

  OVRef<OVDate> date() const { return date_; }
  OVString reason() const { return reason_; }

  static const OVClass& archivedClass() {
    static const OVClass record{"ExampleReminder", nullptr,
                                [] { return OVRef<OVObject>(std::make_shared<Reminder>()); }};
    return record;
  }
  const OVClass* classForCoder() const override { return &archivedClass(); }

  void encodeWithCoder(OVKeyedArchiver& coder) const override {
    coder.encodeObjectForKey(date_, "date");
    coder.encodeObjectForKey(reason_, "reason");
  }
  void initWithCoder(OVKeyedUnarchiver& coder) override {
    date_ = coder.decodeObjectForKey<OVDate>("date");
    reason_ = coder.decodeStringForKey("reason");
  }

 private:
  OVRef<OVDate> date_;
  OVString reason_;
};

int main() {
  auto person = OVPersonGeneral::initWithID("p-1");
  auto reminder =
      std::make_shared<Reminder>(OVDate::dateWithYearMonthDay(2027, 3, 9), "the lighthouse keys");
  auto root = OVDictionary<OVObject>::dictionary({{"person", person}, {"reminder", reminder}});
  auto block = OVKeyedArchiver::archivedDataWithRootObject(root);

  // A program that does not know the class keeps the object, and writes it back as it was.
  auto stranger =
      ov::cast<OVDictionary<OVObject>>(OVKeyedUnarchiver::unarchiveObjectWithData(block));
  std::cout << "unknown: " << ov::cast<OVOpaqueObject>(stranger["reminder"])->className() << "\n";
  auto passedOn = OVKeyedArchiver::archivedDataWithRootObject(stranger);

  OVKeyedUnarchiver::registerClass(Reminder::archivedClass());
  auto known =
      ov::cast<OVDictionary<Reminder>>(OVKeyedUnarchiver::unarchiveObjectWithData(passedOn));
  auto found = known["reminder"];
  std::cout << "known: " << found->reason() << ", " << found->date()->day().year << "\n";
}
