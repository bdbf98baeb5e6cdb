#include <glib.h>

#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/cards.h"
#include "support/printers.h"

namespace {

/// Collects what the parser behind the book complains of: nothing ill-formed may ever reach it.
class HostileInput : public testing::Test {
 protected:
  HostileInput() { previous_ = g_log_set_default_handler(collect, &complaints_); }
  ~HostileInput() override { g_log_set_default_handler(previous_, nullptr); }

  /// Reads the text, and what is written of it, which must be the same book.
  void expectStable(std::string_view text) {
    const auto book = bookOf(text);
    const auto again = bookOf(book->saveData()->text());
    EXPECT_EQ(description(*again), description(*book)) << shown(text);
    EXPECT_EQ(complaints_, "") << shown(text);
    complaints_.clear();
  }

 private:
  static void collect(const gchar* /*domain*/, GLogLevelFlags /*level*/, const gchar* message,
                      gpointer complaints) {
    static_cast<std::string*>(complaints)->append(message).append("\n");
  }
  static std::string shown(std::string_view text) {
    return testing::PrintToString(std::string(text));
  }

  std::string complaints_;
  GLogFunc previous_ = nullptr;
};

const std::string kCard = card(
    "item1.TEL;TYPE=home,pref;X=\"a;b:c\":1\nitem1.X-ABLabel:_$!<Home>!$_\n"
    "NOTE;ENCODING=QUOTED-PRINTABLE;CHARSET=SHIFT_JIS:=8E=52=\n=3B\n"
    "PHOTO;ENCODING=b;TYPE=PNG:\n QUJD\n\nADR;CC=DE:;;a\\nb;c,d;;;X\nAGENT:\nBEGIN:VCARD\nFN:x\n"
    "END:VCARD\nN:a,b;c;;d;e\nBDAY:--0229\nIMPP:aim:%41\nKIND:org\nCATEGORIES:a,b",
    "2.1");

TEST_F(HostileInput, MayBeCutAnywhere) {
  for (std::size_t size = 0; size <= kCard.size(); ++size) expectStable(kCard.substr(0, size));
}

TEST_F(HostileInput, MayLackAnyByte) {
  for (std::size_t i = 0; i < kCard.size(); ++i) {
    std::string text = kCard;
    expectStable(text.erase(i, 1));
  }
}

TEST_F(HostileInput, MayHaveAnyByteChanged) {
  std::mt19937 random(1);  // NOLINT: the same bytes in every run
  const std::string interesting =
      "\r\n\t ;:,=\\\"^.%\0\x80\xFF"
      "BEGIN:VCARD\nEND:VCARD\n";
  for (int round = 0; round < 1000; ++round) {
    std::string text = kCard;
    for (unsigned changes = random() % 4 + 1; changes > 0; --changes) {
      const std::size_t at = random() % text.size();
      if (random() % 2 == 0) {
        text[at] = interesting[random() % interesting.size()];
      } else {
        text.insert(at, 1, interesting[random() % interesting.size()]);
      }
    }
    expectStable(text);
  }
}

TEST_F(HostileInput, MayBeAnyBytes) {
  std::mt19937 random(2);  // NOLINT: the same bytes in every run
  for (int round = 0; round < 100; ++round) {
    std::string lines;
    for (int i = 0; i < 200; ++i) lines += static_cast<char>(random());
    expectStable(lines);
    expectStable("BEGIN:VCARD\nVERSION:4.0\n" + lines + "\nEND:VCARD\n");
    expectStable("BEGIN:VCARD\nVERSION:2.1\nN:" + lines + "\nEND:VCARD\n");
    expectStable("BEGIN:VCARD\nVERSION:3.0\nX-A;" + lines + ":x\nEND:VCARD\n");
  }
}

TEST_F(HostileInput, MayNestWithoutEnd) {
  std::string text;
  for (int i = 0; i < 5000; ++i) text += "BEGIN:VCARD\nAGENT:\n";
  expectStable(text);
  for (int i = 0; i < 5000; ++i) text += "END:VCARD\n";
  expectStable(text);
}

/// What would take forever if the time grew with the square of the size.
TEST_F(HostileInput, TakesTimeInProportionToItsSize) {
  constexpr int kMany = 30000;
  for (const std::string& text : {
           card("N:" + repeated("a;", kMany)),
           card("ADR:" + repeated("a,", kMany)),
           card("CATEGORIES:" + repeated("a;", kMany)),
           card("ORG:" + repeated("a;", kMany)),
           card("X-FOO:" + repeated(";,", kMany)),
           card("X-FOO:a" + repeated("\n b:\"", kMany)),
           card("X;A=\"" + repeated("\n :", kMany)),
           card("TEL;TYPE=" + repeated("a,", kMany) + ":1"),
           card("TEL" + repeated(";A=b", kMany) + ":1"),
           card("NOTE;QUOTED-PRINTABLE:" + repeated("=\n", kMany), "2.1"),
           card("PHOTO;BASE64:" + repeated("QUJD\n", kMany), "2.1"),
           card(repeated("TEL:1\n", kMany / 4)),
           card(repeated("NOTE:1\n", kMany / 4)),
           card(repeated("a.X-ABLabel:1\n", kMany / 4) + repeated("a.TEL:1\n", kMany / 4)),
           card(repeated("no colon\n", kMany)),
           repeated("BEGIN:VCARD\n", kMany),
           repeated("junk\n", kMany),
           repeated("\n", kMany),
       }) {
    static_cast<void>(bookOf(text)->saveData());
  }
}

}  // namespace
