#include <OVAddressBookSDK/version.h>
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace {

constexpr const char* kLibrary = OV_SHARED_LIBRARY;

/// What `what` prints of a file: the texts after "@(#)".
std::string identificationIn(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  const auto begin = bytes.find("@(#)");
  if (begin == std::string::npos) return "";
  return bytes.substr(begin, bytes.find_first_of(std::string("\0\n\">\\", 5), begin) - begin);
}

// Found by their plain names, that is, with C linkage.
TEST(ExportedVersion, NumberIsASymbolOfTheSharedLibrary) {
  const void* symbol = dlsym(RTLD_DEFAULT, "OVAddressBookSDKVersionNumber");
  ASSERT_NE(symbol, nullptr) << dlerror();
  EXPECT_EQ(*static_cast<const double*>(symbol), 1.0);
}

TEST(ExportedVersion, StringIsASymbolOfTheSharedLibrary) {
  const void* symbol = dlsym(RTLD_DEFAULT, "OVAddressBookSDKVersionString");
  ASSERT_NE(symbol, nullptr) << dlerror();
  EXPECT_STREQ(static_cast<const char*>(symbol), OVAddressBookSDKVersionString);
}

TEST(ExportedVersion, StringIsFoundInTheFileOfTheSharedLibrary) {
  EXPECT_EQ(identificationIn(kLibrary), OVAddressBookSDKVersionString);
}

}  // namespace
