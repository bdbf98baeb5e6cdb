// Compiled only, by clang, which checks its own warnings against the comments: a view that is kept
// of what nobody holds gets one, and no good use does.

#include <cstddef>
#include <iostream>
#include <span>
#include <string>
#include <string_view>

#include <OVAddressBookSDK/OVAddressBookSDK.h>

namespace {

OVRef<OVData> block();
OVString name();
std::string standardName();
void take(std::span<const std::byte> bytes);
void take(std::string_view text);
void look(const OVStringView& text);

void views() {
  std::string_view kept = name().view();    // expected-warning {{will be destroyed}}
  std::string_view converted = name();      // expected-warning {{will be destroyed}}
  std::string_view direct(name());          // expected-warning {{will be destroyed}}
  const char* pointer = name().c_str();     // expected-warning {{will be destroyed}}
  std::string_view literal = OVString("");  // expected-warning {{will be destroyed}}
  for (const char c : name().view()) {      // expected-warning {{will be destroyed}}
    std::cout << c;
  }

  const OVString held = name();
  std::string_view good = held;
  std::cout << name().view() << name().c_str() << std::string(name().view()) << good;
  take(name());
}

void blocks() {
  std::span<const std::byte> bytes = block()->bytes();  // expected-warning {{will be destroyed}}
  std::span<const std::byte> direct(block()->bytes());  // expected-warning {{will be destroyed}}
  const std::byte* first = block()->bytes().data();     // expected-warning {{will be destroyed}}
  auto span = block()->bytes().view();                  // expected-warning {{will be destroyed}}
  std::string_view text = block()->text();              // expected-warning {{will be destroyed}}
  std::string_view view = block()->text().view();       // expected-warning {{will be destroyed}}

  const auto held = block()->text();
  std::string_view good = held;
  for (const std::byte byte : block()->bytes()) std::cout << std::to_integer<int>(byte);
  std::cout << block()->text() << std::string(block()->text()) << good;
  take(block()->bytes());
  take(block()->text());
}

void fields() {
  const auto opaque = [] { return ov::cast<OVOpaqueObject>(OVRef<OVObject>()); };
  const auto& first = opaque()->fields()[0];  // expected-warning {{will be destroyed}}
  auto all = opaque()->fields().view();       // expected-warning {{will be destroyed}}

  for (const OVOpaqueField& field : opaque()->fields()) std::cout << field.key;
  const auto held = opaque()->fields();
  std::cout << held[0].key << first.key << all.size();
}

void lookups() {
  OVStringView kept = name();           // expected-warning {{will be destroyed}}
  OVStringView other = standardName();  // expected-warning {{will be destroyed}}
  OVStringView direct(standardName());  // expected-warning {{will be destroyed}}

  const std::string held = standardName();
  OVStringView good = held;
  look(good);
  look(name());
  look(standardName());
  look(nullptr);
}

}  // namespace
