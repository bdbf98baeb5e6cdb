// Text in brackets is what the program says about a datum. All lines are made printable in one
// place, at the end, so that nothing in a book can control the terminal.

#include "show/datum_lines.h"

#include <algorithm>

#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/image.h>
#include <OVAddressBookSDK/instant_message.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/number.h>
#include <OVAddressBookSDK/opaque_object.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/phone.h>

#include "output/date_text.h"
#include "output/escape.h"
#include "output/lines.h"
#include "output/number_text.h"
#include "show/address_lines.h"

namespace ovbook {

namespace {

using Lines = std::vector<std::string>;

constexpr const char* kNothing = "[nothing]";

Lines textLines(const OVString& text) { return text.isNull() ? Lines{kNothing} : linesOf(text); }

Lines nameLines(const OVObjectPersonName& name) {
  std::string parts;
  const auto append = [&parts](const char* what, const OVString& part) {
    if (part.isNull()) return;
    parts += (parts.empty() ? "[" : ", ") + std::string(what) + ": " + part.str();
  };
  append("first", name.first());
  append("middle", name.middle());
  append("last", name.last());
  return parts.empty() ? Lines{kNothing} : Lines{name.displayString().str(), parts + "]"};
}

Lines accountLines(const OVObjectInstantMessage& account) {
  std::string line = account.userName().isNull() ? kNothing : account.userName().str();
  const auto service = account.server();
  if (service != nullptr && !service->displayName().empty()) {
    line += " [" + service->displayName().str() + "]";
  }
  return {line};
}

std::string kindOf(std::string_view image) {
  if (image.starts_with("\x89PNG")) return "PNG image";
  if (image.starts_with("\xFF\xD8\xFF")) return "JPEG image";
  if (image.starts_with("GIF8")) return "GIF image";
  if (image.starts_with("RIFF") && image.substr(0, 12).ends_with("WEBP")) return "WebP image";
  return "image";
}

std::string sizeText(const OVData& data) {
  return std::to_string(data.size()) + (data.size() == 1 ? " byte" : " bytes");
}

Lines imageLines(const OVImage& image) {
  if (image.data() == nullptr) return {kNothing};
  return {"[" + kindOf(image.data()->text()) + ", " + sizeText(*image.data()) + "]"};
}

/// A list of texts, one line each.
Lines listLines(const OVList<OVString>& texts) {
  Lines lines;
  for (const OVString& text : texts) {
    for (std::string& line : textLines(text)) lines.push_back(std::move(line));
  }
  return lines.empty() ? Lines{kNothing} : lines;
}

Lines linesOfOther(const OVRef<OVObject>& datum) {
  if (const auto opaque = ov::cast<OVOpaqueObject>(datum)) {
    return {"[an object of the class " + opaque->className().str() + "]"};
  }
  const OVClass* objectClass = datum->classForCoder();
  return {objectClass == nullptr
              ? std::string("[an object]")
              : "[an object of the class " + std::string(objectClass->name) + "]"};
}

Lines rawLines(const OVRef<OVObject>& datum) {
  if (datum == nullptr) return {kNothing};
  if (const auto text = ov::cast<OVString>(datum)) return textLines(text);
  if (const auto name = ov::cast<OVObjectPersonName>(datum)) return nameLines(*name);
  if (const auto phone = ov::cast<OVObjectPhone>(datum)) return textLines(phone->displayString());
  if (const auto email = ov::cast<OVObjectEmail>(datum)) return textLines(email->email());
  if (const auto account = ov::cast<OVObjectInstantMessage>(datum)) return accountLines(*account);
  if (const auto address = ov::cast<OVObjectAddress>(datum)) return addressLines(address);
  if (const auto date = ov::cast<OVDate>(datum)) return {dateText(*date)};
  if (const auto image = ov::cast<OVImage>(datum)) return imageLines(*image);
  if (const auto number = ov::cast<OVNumber>(datum)) return {numberText(*number)};
  if (const auto data = ov::cast<OVData>(datum)) return {"[" + sizeText(*data) + "]"};
  if (const auto list = ov::cast<OVList<OVString>>(datum)) return listLines(list);
  return linesOfOther(datum);
}

}  // namespace

std::vector<std::string> datumLines(const OVRef<OVObject>& datum) {
  Lines lines = rawLines(datum);
  if (lines.empty()) lines.emplace_back(kNothing);
  std::transform(lines.begin(), lines.end(), lines.begin(),
                 [](const std::string& line) { return printable(line); });
  return lines;
}

}  // namespace ovbook
