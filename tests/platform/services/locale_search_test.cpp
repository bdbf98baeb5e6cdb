#include <gtest/gtest.h>

#include <OVAddressBookSDK/locale.h>

#include "support/printers.h"

namespace {

OVString formOf(const OVString& text) {
  return OVLocale::withIdentifier("en_US")->searchForm(text);
}

/// A host's locale that knows nothing of searches.
class PlainLocale final : public OVLocale {
  OVList<OVString> isoCountryCodes() const override { return nullptr; }
  OVString currentLocaleIdentifier() const override { return "en_US"; }
  OVString lowercase(const OVString& text) const override { return text.str() + " in lower case"; }
};

}  // namespace

TEST(SearchForm, HasNoCaseAndNoAccents) {
  EXPECT_EQ(formOf("J\u00fcrgen Gr\u00f6\u00dfling"), "jurgen grossling");
  EXPECT_EQ(formOf("\u039d\u03af\u03ba\u03bf\u03c2"), formOf("\u039d\u0399\u039a\u039f\u03a3"));
  EXPECT_EQ(formOf("\u0130stanbul"), "istanbul");
}

TEST(SearchForm, HasOneWidth) { EXPECT_EQ(formOf("\uff21\uff11"), "a1"); }

TEST(SearchForm, OfTheSameTextIsTheSameHoweverItIsComposed) {
  EXPECT_EQ(formOf("\uae40\uc11c\uc5f0"),
            formOf("\u1100\u1175\u11b7\u1109\u1165\u110b\u1167\u11ab"));
}

TEST(SearchForm, OfNullIsNull) { EXPECT_EQ(formOf(nullptr), OVString()); }

TEST(SearchForm, OfAHostsLocaleIsItsLowerCaseUnlessItKnowsBetter) {
  EXPECT_EQ(PlainLocale().searchForm("A"), "A in lower case");
  EXPECT_EQ(PlainLocale().sortKey("A"), "A in lower case");
}
