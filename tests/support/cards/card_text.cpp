#include "support/cards/card_text.h"

#include <cstddef>
#include <random>

namespace {

const std::string& hardCard() {
  static const std::string text = card(
      "item1.TEL;TYPE=home,pref;X=\"a;b:c\":1\nitem1.X-ABLabel:_$!<Home>!$_\n"
      "NOTE;ENCODING=QUOTED-PRINTABLE;CHARSET=SHIFT_JIS:=8E=52=\n=3B\nFN;CHARSET=ISO-8859-1:\xE4;\n"
      "PHOTO;ENCODING=b;TYPE=PNG:\n QUJD\n\nADR;CC=DE:;;a\\nb;c,d;;;X\nAGENT:\nBEGIN:VCARD\nFN:x\n"
      "END:VCARD\nN:a,b;c;;d;e\nBDAY:--0229\nIMPP:aim:%41\nKIND:org\nCATEGORIES:a,b",
      "2.1");
  return text;
}

}  // namespace

std::string card(std::string_view lines, std::string_view version) {
  std::string text = "BEGIN:VCARD\nVERSION:" + std::string(version) + "\n" + std::string(lines);
  if (!lines.empty() && !lines.ends_with('\n')) text += '\n';
  return text + "END:VCARD\n";
}

std::string repeated(std::string_view part, int count) {
  std::string text;
  text.reserve(part.size() * static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) text += part;
  return text;
}

void useCutCards(const UseText& use) {
  for (std::size_t size = 0; size <= hardCard().size(); ++size) use(hardCard().substr(0, size));
}

void useCardsThatLackAByte(const UseText& use) {
  for (std::size_t i = 0; i < hardCard().size(); ++i) {
    std::string text = hardCard();
    use(text.erase(i, 1));
  }
}

void useChangedCards(int count, const UseText& use) {
  std::mt19937 random(1);  // NOLINT: the same bytes in every run
  const std::string interesting =
      "\r\n\t ;:,=\\\"^.%\0\x80\xFF"
      "BEGIN:VCARD\nEND:VCARD\n";
  for (int i = 0; i < count; ++i) {
    std::string text = hardCard();
    for (unsigned changes = random() % 4 + 1; changes > 0; --changes) {
      const std::size_t at = random() % text.size();
      if (random() % 2 == 0) {
        text[at] = interesting[random() % interesting.size()];
      } else {
        text.insert(at, 1, interesting[random() % interesting.size()]);
      }
    }
    use(text);
  }
}

void useAnyBytes(const UseText& use) {
  std::mt19937 random(2);  // NOLINT: the same bytes in every run
  for (int round = 0; round < 100; ++round) {
    std::string lines;
    for (int i = 0; i < 200; ++i) lines += static_cast<char>(random());
    use(lines);
    use("BEGIN:VCARD\nVERSION:4.0\n" + lines + "\nEND:VCARD\n");
    use("BEGIN:VCARD\nVERSION:2.1\nN:" + lines + "\nEND:VCARD\n");
    use("BEGIN:VCARD\nVERSION:3.0\nX-A;" + lines + ":x\nEND:VCARD\n");
  }
}

void useNestedCards(const UseText& use) {
  const std::string open = repeated("BEGIN:VCARD\nAGENT:\n", 5000);
  use(open);
  use(open + repeated("END:VCARD\n", 5000));
}

void useCostlyCards(int count, const UseText& use) {
  std::string names;
  for (int i = 0; i < count; ++i) names += ";A" + std::to_string(i) + "=b";
  for (const std::string& text : {
           card("N:" + repeated("a;", count)),
           card("ADR:" + repeated("a,", count)),
           card("CATEGORIES:" + repeated("a;", count)),
           card("ORG:" + repeated("a;", count)),
           card("X-FOO:" + repeated(";,", count)),
           card("X-FOO:a" + repeated("\n b:\"", count)),
           card("X;A=\"" + repeated("\n :", count)),
           card("X" + repeated("\n b", count)),
           card("TEL;TYPE=" + repeated("a,", count) + ":1"),
           card("TEL" + repeated(";A=b", count) + ":1"),
           card("TEL" + names + ":1"),
           card("NOTE;QUOTED-PRINTABLE:" + repeated("=\n", count), "2.1"),
           card("NOTE;QUOTED-PRINTABLE" + repeated("\n ", count), "2.1"),
           card("NOTE;QUOTED-PRINTABLE:" + repeated("\n ", count), "2.1"),
           card("NOTE;QUOTED-PRINTABLE:=" + repeated("\n", count), "2.1"),
           card(repeated("NOTE;QUOTED-PRINTABLE:=\n\n", count), "2.1"),
           card("PHOTO;BASE64:" + repeated("QUJD\n", count), "2.1"),
           card(repeated("PHOTO;BASE64:\n", count), "2.1"),
           card(repeated("TEL:1\n", count / 4)),
           card(repeated("NOTE:1\n", count / 4)),
           card(repeated("a.X-ABLabel:1\n", count / 4) + repeated("a.TEL:1\n", count / 4)),
           card(repeated("FN:\xE4\n", count)),
           card(repeated("no colon\n", count)),
           card(repeated("AGENT:\n", count)),
           card(repeated("AGENT:BEGIN:VCARD\n", count)),
           repeated("BEGIN:VCARD\n", count),
           repeated("BEGIN:VCARD\nAGENT:\n", count),
           repeated("BEGIN:VCARD\rFN:a\rEND:VCARD\r", count),
           "BEGIN:VCARD\n" + repeated("a\r\r", count),
           repeated("junk\n", count),
           repeated("\n", count),
       }) {
    use(text);
  }
}
