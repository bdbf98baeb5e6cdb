#include <OVAddressBookSDK/OVAddressBookSDK.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

int main(int count, char** arguments) {
  if (count == 2 && std::string(arguments[1]) == "write") {
    auto label = OVLabel::init();
    label->setName("work");
    label->setDisplayName("Work");
    auto block =
        OVKeyedArchiver::archivedDataWithRootObject(OVList<OVObject>::list({label, label}));
    std::ofstream("labels.plist", std::ios::binary) << block->text();
  } else {
    std::ifstream file("labels.plist", std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    auto labels = ov::cast<OVList<OVLabel>>(
        OVKeyedUnarchiver::unarchiveObjectWithData(OVData::dataWithText(bytes)));
    std::cout << labels[1]->displayName() << ", "
              << (labels[0] == labels[1] ? "one label" : "two labels") << "\n";
  }
}
