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

/// What `read` makes of the data of the file at `path`.
template <class Read>
auto readWith(Read read, const OVRef<OVData>& data, const std::string& path) {
  ov::vcard::registerClasses();
  try {
    return read(data);
  } catch (const OVInvalidArchive& damage) {
    throw Failure(path, damage.what());
  }
}

OVRef<OVAddressBookGeneral> bookOf(const OVRef<OVData>& data, const std::string& path) {
  const auto root = readWith(&OVAddressBookGeneral::addressBookWithData, data, path);
  auto book = ov::cast<OVAddressBookGeneral>(root);
  if (book == nullptr) {
    throw Failure(path, "not an address book: its root object is " + classNameOf(root));
  }
  return book;
}

}  // namespace

OVRef<OVAddressBookGeneral> openBook(const std::string& path) {
  return bookOf(readFile(path), path);
}

OVDictionary<const OVPersonGeneral> personsToList(const std::string& path) {
  const auto data = readFile(path);
  if (auto persons = readWith(&ov::personsToList, data, path); persons != nullptr) return persons;
  return personsOf(*bookOf(data, path));
}

OVDictionary<OVPersonGeneral> personsOf(const OVAddressBookGeneral& book) {
  return orEmpty(book.personsDic());
}

OVDictionary<OVGroupGeneral> groupsOf(const OVAddressBookGeneral& book) {
  return orEmpty(book.groupsDic());
}

}  // namespace ovbook
