#include <array>
#include <limits>

#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/label.h>
#include <OVAddressBookSDK/number.h>

#include "golden/golden_graphs.h"
#include "support/archive/archived_fields.h"
#include "support/values.h"

// What archives hold beside the library's own classes.

namespace {

using Any = OVList<OVObject>;
using Reals = std::numeric_limits<double>;

OVRef<OVObject> dates() {
  const auto list = Any::list();
  for (const double seconds : {0.0, -0.25, 1e9, -63114076800.0, 252455616000.0}) {
    list.push_back(OVDate::dateWithTimeIntervalSinceReferenceDate(seconds));
  }
  list.push_back(OVDate::dateWithYearMonthDay(1969, 7, 20));
  return list;
}

OVRef<OVObject> integers() {
  const auto list = Any::list();
  for (const std::int64_t each :
       {0LL, 1LL, 255LL, 256LL, 65535LL, 65536LL, 4294967295LL, 4294967296LL, -1LL, -128LL,
        9223372036854775807LL, -9223372036854775807LL - 1}) {
    list.push_back(OVNumber::numberWithInteger(each));
  }
  return list;
}

OVRef<OVObject> reals() {
  const auto list = Any::list();
  for (const double each : {0.0, 0.5, -1.25, 1e300, Reals::denorm_min(), Reals::infinity()}) {
    list.push_back(OVNumber::numberWithDouble(each));
  }
  return list;
}

OVRef<OVObject> truths() {
  return Any::list({OVNumber::numberWithBool(true), OVNumber::numberWithBool(false),
                    OVNumber::numberWithInteger(1), OVNumber::numberWithInteger(0)});
}

OVRef<OVObject> unsignedIntegers() {
  return Any::list({OVNumber::numberWithUnsigned(9223372036854775808U),
                    OVNumber::numberWithUnsigned(18446744073709551615U)});
}

OVRef<OVObject> texts() {
  return Any::list({OVString(""), OVString("a \"quoted\" \\ text\n\t"), OVString("Zoë €"),
                    OVString("😀 \U0010FFFF"), OVString("same"), OVString("same"), OVString("\x7F"),
                    OVString(std::string(15, 'f')), OVString(std::string(300, 'x'))});
}

OVRef<OVObject> dataBlocks() {
  std::string all;
  for (int each = 0; each < 256; ++each) all += static_cast<char>(each);
  return Any::list({OVData::dataWithText(""), OVData::dataWithText(std::string("\0\xFF", 2)),
                    OVData::dataWithText(all)});
}

OVRef<OVObject> collections() {
  const auto shared = Any::list({OVString("shared")});
  const auto dictionary = OVDictionary<OVObject>::dictionary(
      {{"z", shared}, {"ä", OVDictionary<OVObject>::dictionary()}, {"", Any::immutableList()}});
  return Any::list({shared, dictionary, shared, dictionary, Any::list()});
}

/// Of the equal texts some are shared, some follow each other, and some lie far apart.
OVRef<OVObject> manyTexts() {
  const auto lists = Any::list();
  const OVString shared = "shared";
  for (int i = 0; i < 700; ++i) {
    const auto list = Any::list({OVString(std::to_string(i)), OVString(std::to_string(i % 7)),
                                 OVNumber::numberWithInteger(i % 5)});
    if (i % 300 == 0) list.push_back(shared);
    lists.push_back(list);
  }
  return lists;
}

/// A label of a program's own class, with fields of every plain kind.
class OwnLabel final : public OVLabel {
 public:
  const OVClass* classForCoder() const override {
    static const OVClass record{"XYLabel", &OVLabel::archivedClass(), nullptr};
    return &record;
  }
  void encodeWithCoder(OVKeyedArchiver& coder) const override {
    constexpr std::array bytes{std::byte{0}, std::byte{0xFF}};
    OVLabel::encodeWithCoder(coder);
    coder.encodeIntegerForKey(-7, "integer");
    coder.encodeIntegerForKey(4294967296, "large");
    coder.encodeBoolForKey(true, "true");
    coder.encodeBoolForKey(false, "false");
    coder.encodeDoubleForKey(0.5, "real");
    coder.encodeBytesForKey(bytes, "bytes");
    coder.encodeObjectForKey(OVRef<OVObject>(), "null");
    coder.encodeListForKey(std::array<OVRef<OVObject>, 2>{OVString("a"), OVString("b")}, "list");
    coder.encodeObjectForKey(OVString("dollar"), "$own");
  }
};

OVRef<OVObject> unknownClasses() {
  const auto own = std::make_shared<OwnLabel>();
  own->setName("own");
  return Any::list({own, own, valueOf(OVValueTypeString, own, labelOf("plain")), foreignObject()});
}

}  // namespace

std::vector<GoldenGraph> goldenArchiveGraphs() {
  return {{"null", [] { return OVRef<OVObject>(); }},
          {"text", [] { return OVRef<OVObject>(OVString("just a text")); }},
          {"text_like_null", [] { return OVRef<OVObject>(OVString("$null")); }},
          {"dates", dates},
          {"integers", integers},
          {"unsigned_integers", unsignedIntegers},
          {"reals", reals},
          {"truths", truths},
          {"texts", texts},
          {"data_blocks", dataBlocks},
          {"collections", collections},
          {"many_texts", manyTexts},
          {"unknown_classes", unknownClasses}};
}
