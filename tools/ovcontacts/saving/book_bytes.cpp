#include "saving/book_bytes.h"

#include <QtCore/QFileInfo>

#include <utility>
#include <vector>

#include <OVAddressBookQt/block_book.h>
#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookVCard/vcard_book.h>
#include <OVAddressBookVCard/vcard_export.h>

namespace ovcontacts {

namespace {

/// Every group once, each before its sub-groups.
void addGroups(OVAddressBookGeneral& general, const OVList<IOVGroup>& roots) {
  std::vector<OVRef<IOVGroup>> open;
  const auto addInOrder = [&open](const OVList<IOVGroup>& groups) {
    for (std::size_t i = groups.size(); i-- > 0;) open.push_back(groups[i]);
  };
  const auto known = general.groupsDic();
  addInOrder(roots);
  while (!open.empty()) {
    const auto group = std::move(open.back());
    open.pop_back();
    if (group == nullptr || known.contains(group->ID())) continue;
    general.addGroup(group);
    addInOrder(group->subGroups());
  }
}

/// The whole of any book as a general one.
OVRef<OVAddressBookGeneral> generalBookOf(const OVRef<OVAddressBook>& book) {
  if (const auto block = ov::cast<OVBlockBook>(book)) return block->generalBook();
  auto general = OVAddressBookGeneral::init();
  const auto persons = book->allPersons();
  for (const auto& person : persons) general->addPerson(person);
  addGroups(*general, book->rootGroups());
  return general;
}

}  // namespace

Format formatOf(const QString& path) {
  const QString suffix = QFileInfo(path).suffix().toLower();
  const bool isCards = suffix == QLatin1String("vcf") || suffix == QLatin1String("vcard");
  return isCards ? Format::Cards : Format::Block;
}

OVRef<OVData> bytesOf(const OVRef<OVAddressBook>& book, Format format) {
  if (format == Format::Block) return generalBookOf(book)->saveToData();
  if (const auto cards = ov::cast<OVVCardBook>(book)) return cards->saveData();
  return ov::vcard::exportBook(generalBookOf(book));
}

}  // namespace ovcontacts
