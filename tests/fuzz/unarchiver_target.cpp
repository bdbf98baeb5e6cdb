// Any bytes are either refused or an archive whose objects can be used, and what is written of them
// is read as the same graph and written in the same bytes.

#include <algorithm>
#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/opaque_object.h>
#include <OVAddressBookSDK/persons_to_list.h>

#include "fuzz/finding.h"
#include "fuzz/reachable.h"
#include "fuzz/use_objects.h"
#include "support/archive/archive_listing.h"
#include "support/fakes/fake_platform.h"
#include "support/memory/leaks_tolerated.h"

namespace {

using Unarchive = OVRef<OVObject> (*)(const OVRef<OVData>&);

/// A graph that was read, released as a whole at the end.
class Graph {
 public:
  explicit Graph(OVRef<OVObject> root) : root_(std::move(root)), objects_(reachable(root_)) {}
  Graph(const Graph&) = delete;
  Graph& operator=(const Graph&) = delete;
  ~Graph() { release(objects_); }

  void use() const { useObjects(objects_); }
  [[nodiscard]] const std::vector<OVRef<OVObject>>& objects() const { return objects_; }
  [[nodiscard]] std::string listing() const { return archiveListing(root_); }
  [[nodiscard]] OVRef<OVData> archive() const {
    return OVKeyedArchiver::archivedDataWithRootObject(root_);
  }

 private:
  OVRef<OVObject> root_;
  std::vector<OVRef<OVObject>> objects_;
};

/// Which value is the main one is left out: where a damaged archive has null there, another is
/// taken when it is written.
std::string withoutMainValues(const std::string& listing) {
  std::istringstream lines(listing);
  std::string kept;
  for (std::string line; std::getline(lines, line);) {
    if (line.find(".mainValueIndex = ") == std::string::npos) kept += line + '\n';
  }
  return kept;
}

OVRef<OVObject> readOwn(Unarchive unarchive, const OVRef<OVData>& block) {
  try {
    return unarchive(block);
  } catch (const OVInvalidArchive& error) {
    finding(std::string("what we wrote is refused: ") + error.what());
  }
}

/// Whether every list of values in a block tells its main value. Where one does not, the first is
/// it once it has been read, and written as such. Objects that others cannot reach count as well.
bool tellsMainValues(const OVRef<OVData>& block) {
  const Graph opaque(readOwn(&OVKeyedUnarchiver::unarchiveOpaqueObjectWithData, block));
  return std::ranges::none_of(opaque.objects(), [](const OVRef<OVObject>& each) {
    const auto list = ov::cast<OVOpaqueObject>(each);
    if (list == nullptr || list->className() != "OVMutableMultipleValue") return false;
    const auto fields = list->fields();
    const auto has = [&](std::string_view key) {
      return std::ranges::any_of(fields.view(),
                                 [&](const OVOpaqueField& field) { return field.key == key; });
    };
    return has("valueArray") && !has("mainValueIndex");
  });
}

void check(Unarchive unarchive, const OVRef<OVData>& block) {
  const LeaksTolerated tolerated;
  OVRef<OVObject> root;
  try {
    root = unarchive(block);
  } catch (const OVInvalidArchive&) {
    return;
  }
  const Graph first(std::move(root));
  first.use();
  const OVRef<OVData> saved = first.archive();
  const Graph second(readOwn(unarchive, saved));
  expectThat(withoutMainValues(second.listing()) == withoutMainValues(first.listing()),
             "another graph is read from what was written");
  const OVRef<OVData> settled = second.archive();
  expectThat(settled->text() == saved->text() || !tellsMainValues(saved),
             "other bytes than those that were read");
  const Graph third(readOwn(unarchive, settled));
  expectThat(third.listing() == second.listing(), "another graph the second time");
  expectThat(third.archive()->text() == settled->text(), "other bytes the second time");
}

/// Persons are read for a list, or the block is refused.
void checkPersonsToList(const OVRef<OVData>& block) {
  const LeaksTolerated tolerated;
  std::vector<OVRef<OVObject>> objects;
  try {
    for (const auto& [ID, person] : ov::personsToList(block)) objects.push_back(person);
  } catch (const OVInvalidArchive&) {
    return;
  }
  std::erase(objects, nullptr);
  useObjects(objects);
  release(objects);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const FakePlatform platform;
  const auto block = OVData::dataWithBytes(std::as_bytes(std::span(data, size)));
  check(&OVKeyedUnarchiver::unarchiveObjectWithData, block);
  check(&OVKeyedUnarchiver::unarchiveOpaqueObjectWithData, block);
  checkPersonsToList(block);
  return 0;
}
