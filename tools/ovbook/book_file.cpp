#include "book_file.h"

#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/opaque_object.h>
#include <OVAddressBookSDK/persons_to_list.h>
#include <OVAddressBookVCard/vcard_export.h>

#include "files.h"
#include "session.h"

namespace ovbook {

namespace {

std::string classNameOf(const OVRef<OVObject>& object) {
  if (object == nullptr) return "null";
  if (const auto opaque = ov::cast<OVOpaqueObject>(object)) return opaque->className().str();
  const OVClass* objectClass = object->classForCoder();
  return objectClass == nullptr ? "unknown" : objectClass->name;
}

template <class T>
OVDictionary<T> orEmpty(OVDictionary<T> dictionary) {
  return dictionary == nullptr ? OVDictionary<T>::dictionary() : std::move(dictionary);
}

template <class Read>
auto readWith(Read read, const std::string& path) {
  ov::vcard::registerClasses();
  try {
    return read(readFile(path));
  } catch (const OVInvalidArchive& damage) {
    throw Failure(path, damage.what());
  }
}

}  // namespace

OVRef<OVAddressBookGeneral> openBook(const std::string& path) {
  const auto root = readWith(&OVAddressBookGeneral::addressBookWithData, path);
  auto book = ov::cast<OVAddressBookGeneral>(root);
  if (book == nullptr) {
    throw Failure(path, "not an address book: its root object is " + classNameOf(root));
  }
  return book;
}

OVDictionary<const OVPersonGeneral> personsToList(const std::string& path) {
  if (auto persons = readWith(&ov::personsToList, path); persons != nullptr) return persons;
  return personsOf(*openBook(path));
}

OVDictionary<OVPersonGeneral> personsOf(const OVAddressBookGeneral& book) {
  return orEmpty(book.personsDic());
}

OVDictionary<OVGroupGeneral> groupsOf(const OVAddressBookGeneral& book) {
  return orEmpty(book.groupsDic());
}

}  // namespace ovbook
