#include <OVAddressBookSDK/OVAddressBookSDK.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <string>

namespace {

OVRef<OVObject> objectIn(const char* path) {
  std::ifstream file(path, std::ios::binary);
  const std::string bytes(std::istreambuf_iterator<char>(file), {});
  return OVKeyedUnarchiver::unarchiveObjectWithData(OVData::dataWithText(bytes));
}

/// The object as it comes back once more.
void addClass(std::set<std::string>& names, const OVRef<OVObject>& object) {
  const auto again = OVKeyedUnarchiver::unarchiveObjectWithData(
      OVKeyedArchiver::archivedDataWithRootObject(object));
  const bool isKnown = again != nullptr && ov::cast<OVOpaqueObject>(again) == nullptr;
  if (isKnown && again->classForCoder() != nullptr) names.insert(again->classForCoder()->name);
}

}  // namespace

/// Prints the classes that the library knows among those in the blocks, without naming one itself:
/// nothing here makes a linker take a class that the library does not take along.
int main(int count, char** paths) {
  std::set<std::string> names;
  for (int i = 1; i < count; ++i) {
    const OVRef<OVObject> root = objectIn(paths[i]);
    addClass(names, root);
    for (const auto& each : ov::cast<OVList<OVObject>>(root)) addClass(names, each);
  }
  for (const std::string& name : names) std::cout << name << "\n";
}
