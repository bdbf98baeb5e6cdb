#include <OVAddressBookSDK/OVAddressBookSDK.h>

#include <iostream>
#include <sstream>
#include <string>
#include <utility>

/// A group of the store: the persons of one department.
class Department : public IOVGroup {
 public:
  explicit Department(OVString name) : name_(std::move(name)) {}

  OVString ID() const override { return name_; }
  OVString displayName() const override { return name_; }
  OVList<IOVGroup> subGroups() const override { return nullptr; }
  OVList<IOVPerson> persons() const override { return persons_; }

  void add(const OVRef<IOVPerson>& person) { persons_.push_back(person); }

 private:
  OVString name_;
  OVList<IOVPerson> persons_ = OVList<IOVPerson>::list();
};

/// A staff list with one person a line: number, first name, last name, department.
class StaffList : public OVAddressBook {
 public:
  explicit StaffList(std::istream& lines) {
    for (std::string line; std::getline(lines, line);) add(line);
  }

  OVString ID() const override { return "staff"; }
  OVString name() const override { return "Staff"; }
  bool canOprate() const override { return false; }  // others keep the list
  bool canCreateGroup() const override { return false; }
  bool canCreateSubGroup() const override { return false; }
  std::uint64_t allPersonsCount() const override { return persons_.size(); }
  OVList<IOVPerson> allPersons() const override { return persons_; }
  std::uint64_t rootGroupsCount() const override { return departments_.size(); }
  OVList<IOVGroup> rootGroups() const override { return departments_; }

 private:
  void add(const std::string& line) {
    std::istringstream fields(line);
    std::string number, first, last, department;
    fields >> number >> first >> last >> department;
    auto person = OVPersonGeneral::initWithID("staff-" + number);
    auto name = OVObjectPersonName::initWithFirstMiddleLast(first, nullptr, last);
    person->setValueByPropertyName(ov::labelled(name, nullptr, OVValueTypePersonName),
                                   OVProPertyName);
    persons_.push_back(person);
    departmentNamed(department)->add(person);
  }

  OVRef<Department> departmentNamed(const std::string& name) {
    for (const auto& group : departments_) {
      if (group->ID() == name) return ov::cast<Department>(group);
    }
    auto made = std::make_shared<Department>(OVString(name));
    departments_.push_back(made);
    return made;
  }

  OVList<IOVPerson> persons_ = OVList<IOVPerson>::list();
  OVList<IOVGroup> departments_ = OVList<IOVGroup>::list();
};

/// The book as it is now, in a form that can be saved.
OVRef<OVAddressBookGeneral> snapshotOf(const OVAddressBook& book) {
  auto snapshot = OVAddressBookGeneral::init();
  for (const auto& person : book.allPersons()) snapshot->addPerson(person);
  for (const auto& group : book.rootGroups()) snapshot->addGroup(group);
  return snapshot;
}

int main() {
  std::istringstream lines(
      "17 Ngozi Eze Harbour\n"
      "21 Pavel Novak Lighthouse\n"
      "34 Salma Haddad Harbour\n");
  const StaffList staff(lines);

  auto block = snapshotOf(staff)->saveToData();
  auto restored = ov::cast<OVAddressBookGeneral>(OVAddressBookGeneral::addressBookWithData(block));
  for (const auto& [ID, group] : restored->groupsDic()) {
    std::cout << group->title() << ":";
    for (const OVString& member : group->persons()) {
      std::cout << " " << restored->personsDic()[member]->displayName() << ";";
    }
    std::cout << "\n";
  }
}
