#include "card_writer.h"

namespace ov::vcard {

namespace {

constexpr std::size_t kLongestLine = 75;

/// How many bytes of the text fit into a line without cutting a character in two.
std::size_t fitting(std::string_view text, std::size_t room) {
  if (text.size() <= room) return text.size();
  std::size_t end = room;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) --end;
  return end;
}

}  // namespace

void CardWriter::begin() {
  items_ = 0;
  out_ += "BEGIN:VCARD\r\nVERSION:4.0\r\n";
}

void CardWriter::end() { out_ += "END:VCARD\r\n"; }

void CardWriter::line(std::string_view name, std::string_view parameters, std::string_view value) {
  std::string text;
  text.reserve(name.size() + parameters.size() + 1 + value.size());
  fold(text.append(name).append(parameters).append(":").append(value));
}

void CardWriter::labelledLine(std::string_view name, std::string parameters,
                              const LabelSpelling& label, std::string_view value) {
  if (!label.types.empty()) parameters.append(";TYPE=").append(label.types);
  if (label.line.empty()) {
    line(name, parameters, value);
    return;
  }
  const std::string item = "item" + std::to_string(++items_) + ".";
  line(item + std::string(name), parameters, value);
  fold(item + "X-ABLABEL" + label.line);
}

void CardWriter::fold(std::string_view text) {
  std::size_t taken = fitting(text, kLongestLine);
  out_.append(text.substr(0, taken));
  while (taken < text.size()) {
    text.remove_prefix(taken);
    taken = fitting(text, kLongestLine - 1);
    out_.append("\r\n ").append(text.substr(0, taken));
  }
  out_ += "\r\n";
}

}  // namespace ov::vcard
