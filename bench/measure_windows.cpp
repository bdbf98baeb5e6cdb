// What a window with many persons costs beside the book: PERSONS.

#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>
#include <QtWidgets/QListView>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <OVAddressBookQt/block_book.h>
#include <OVAddressBookQt/persons_filter.h>
#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/phone.h>

#include "library_book.h"
#include "meter.h"

namespace {

constexpr int kRuns = 7;

struct Operation {
  std::function<void()> run;
  std::function<void()> forget;
};

/// The processor's seconds of each, medians. They take turns, so that what slows the machine down
/// for a while slows all of them.
std::vector<double> inTurn(const std::vector<Operation>& operations) {
  std::vector<std::vector<double>> seconds(operations.size());
  for (int run = 0; run < kRuns; ++run) {
    for (std::size_t i = 0; i < operations.size(); ++i) {
      const auto cost = bench::measure(1, operations[i].run, operations[i].forget);
      seconds[i].push_back(cost.processorSeconds);
    }
  }
  std::vector<double> medians;
  for (const auto& each : seconds) medians.push_back(bench::median(each));
  return medians;
}

/// A window with the persons' names on it.
struct Shown {
  explicit Shown(const OVRef<OVAddressBook>& book) : book(book) {
    list.setUniformItemSizes(true);
    list.setModel(&found);
    list.resize(300, 600);
    list.show();
    list.grab();
  }
  OVQtBook book;
  OVPersonsModel persons{&book};
  OVPersonsFilter found{&persons};
  QListView list;
};

OVRef<OVAddressBookGeneral> restored(const OVRef<OVData>& block) {
  return ov::cast<OVAddressBookGeneral>(OVAddressBookGeneral::addressBookWithData(block));
}

/// Calls `visit` with the texts that a search looks into.
void visitTexts(const IOVPerson& person, const std::function<void(const OVString&)>& visit) {
  const auto single = [&](const OVString& property) {
    const auto value = ov::cast<OVSingleValue>(person.valueByPropertyName(property));
    return value == nullptr ? nullptr : value->value();
  };
  if (const auto name = ov::cast<OVObjectPersonName>(single(OVProPertyName))) {
    visit(name->first());
    visit(name->middle());
    visit(name->last());
  }
  visit(ov::cast<OVString>(single(OVProPertyCompany)));
  for (const OVString& property : {OVProPertyPhone, OVProPertyEmail}) {
    const auto several = ov::cast<OVMultipleValue>(person.valueByPropertyName(property));
    for (const auto& each : several) {
      if (const auto phone = ov::cast<OVObjectPhone>(each->value())) visit(phone->phoneNumber());
      if (const auto email = ov::cast<OVObjectEmail>(each->value())) visit(email->email());
    }
  }
}

/// A plain scan of the same texts: those that hold the letter as it is.
std::size_t scan(const OVList<IOVPerson>& persons, std::string_view letter) {
  std::size_t found = 0;
  for (const auto& person : persons) {
    bool has = false;
    visitTexts(*person, [&](const OVString& text) {
      has = has || text.view().find(letter) != std::string_view::npos;
    });
    found += has ? 1U : 0U;
  }
  return found;
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 2) return 2;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(count, arguments);
  const auto persons = static_cast<std::uint32_t>(std::strtoul(arguments[1], nullptr, 10));
  const auto block = bench::libraryBook(persons)->saveToData();

  OVRef<OVAddressBookGeneral> book;
  std::unique_ptr<Shown> shown;
  const auto opening =
      inTurn({{[&] { book = restored(block); }, [&] { book = nullptr; }},
              {[&] { shown = std::make_unique<Shown>(OVBlockBook::initWithBook(restored(block))); },
               [&] { shown = nullptr; }}});

  book = restored(block);
  const auto open = OVBlockBook::initWithBook(book);
  bench::settle();
  const std::size_t before = bench::residentBytes();
  Shown window(open);
  bench::settle();
  const std::size_t after = bench::residentBytes();

  const auto all = open->allPersons();
  std::size_t scanned = 0;
  int found = 0;
  const auto searching =
      inTurn({{[&] { scanned = scan(all, "z"); }, [] {}},
              {[&] { window.found.setText("z"); }, [&] { found = window.found.rowCount(); }},
              {[&] { window.found.setText("zq"); }, [&] { window.found.setText(""); }}});
  std::printf(
      "{\"restoring\": %f, \"opening\": %f, \"scanning\": %f, \"typing\": %f, "
      "\"typingOn\": %f, \"found\": %d, \"scanned\": %zu, \"bytes\": %zu}\n",
      opening[0], opening[1], searching[0], searching[1], searching[2], found, scanned,
      after - before);
}
