// A book over vCard files while memory runs out, at each allocation in turn.

#include <filesystem>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/tag_manager.h>

#include "hosts/cards.h"
#include "support/memory/failing_memory.h"
#include "support/processes/temporary_folder.h"

namespace {

/// A person, and a group with a member that is in no file yet.
std::string earlier() {
  return card("UID:a\nFN:A\nCATEGORIES:x") + card("UID:g\nKIND:group\nFN:G\nMEMBER:a\nMEMBER:b");
}

/// The missing member, a card whose UID is taken, one without, a repeated and a damaged one, and a
/// group that makes a ring of the groups.
std::string later() {
  return card("UID:b\nN:L;F\nTEL;TYPE=home:1\nADR:;;S;C;;1;D\nCATEGORIES:y\nPHOTO:data:,x") +
         card("UID:a\nFN:Another") + card("FN:None\nX-OTHER;A=1:b\nBDAY:19690720") +
         card("FN:None\nX-OTHER;A=1:b\nBDAY:19690720") + "BEGIN:VCARD\nno card\nEND:VCARD\n" +
         card("UID:h\nKIND:group\nFN:H\nMEMBER:g\nMEMBER:h\nMEMBER:c");
}

std::string everythingOf(const OVVCardBook& book) {
  std::string all = description(book);
  for (const std::string& problem : problems(book)) all += problem + "\n";
  return all;
}

TEST(VCardShortage, AFileIsAddedWholeOrNotAtAll) {
  const std::string before = everythingOf(*bookOf(earlier()));
  const std::string after = [] {
    const auto book = bookOf(earlier());
    book->loadWithData(OVData::dataWithText(later()));
    return everythingOf(*book);
  }();
  const auto data = OVData::dataWithText(later());
  for (const auto kind : {MemoryShortage::Kind::passing, MemoryShortage::Kind::lasting}) {
    bool occurred = true;
    for (long failing = 1; occurred && !HasFailure(); failing = nextToFail(failing)) {
      SCOPED_TRACE(failing);
      const auto book = bookOf(earlier());
      try {
        const MemoryShortage shortage(kind, failing);
        book->loadWithData(data);
        occurred = MemoryShortage::occurred();
      } catch (const std::bad_alloc&) {
        EXPECT_EQ(everythingOf(*book), before);
        book->loadWithData(data);
      }
      EXPECT_EQ(everythingOf(*book), after);
    }
  }
}

TEST(VCardShortage, NothingOfABookIsLeftBehind) {
  const TemporaryFolder folder;
  const std::string path = folder.at("book.vcf");
  writeFile(path, earlier() + later());
  const auto load = [&] {
    const auto book = OVVCardBook::initWithPath(path);
    EXPECT_FALSE(book->load());
    return book;
  };
  failEachAllocation(
      load, [&](const OVRef<OVVCardBook>& book) { EXPECT_EQ(book->allPersonsCount(), 4U); });
}

TEST(VCardShortage, TheFileIsReplacedWholeOrNotAtAll) {
  const TemporaryFolder folder;
  const std::string path = folder.at("book.vcf");
  const auto book = OVVCardBook::initWithPath(path);
  book->loadWithData(OVData::dataWithText(earlier() + later()));
  const std::string expected(book->saveData()->text());
  const std::string old = "what was there";
  writeFile(path, old);
  const auto save = [&] {
    book->save();
    return book->saveError();
  };
  failEachAllocation(save, [&](const std::error_code& error) {
    EXPECT_FALSE(error);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
    EXPECT_EQ(readFile(path), expected);
  });
  bool isReplaced = false;
  for (long failing = 1; !isReplaced; failing = nextToFail(failing)) {
    writeFile(path, old);
    try {
      const MemoryShortage shortage(MemoryShortage::Kind::passing, failing);
      book->save();
    } catch (const std::bad_alloc&) {  // what is there then is looked at below
    }
    const std::string found = readFile(path);
    isReplaced = found == expected;
    EXPECT_TRUE(isReplaced || found == old) << "allocation " << failing;
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
  }
}

}  // namespace
