#include "output/json_writer.h"

#include <ostream>
#include <utility>

#include "output/escape.h"

namespace ovbook {

void JsonWriter::startLine() { out_ << '\n' << std::string(levels_.size(), ' '); }

/// What separates this value or key from the one before it.
void JsonWriter::separate() {
  if (std::exchange(isAfterKey_, false) || levels_.empty()) return;
  if (!std::exchange(levels_.back().isEmpty, false)) out_ << ',';
  startLine();
}

void JsonWriter::begin(char opening, char closing) {
  separate();
  out_ << opening;
  levels_.push_back({closing});
}

void JsonWriter::end() {
  const Level level = levels_.back();
  levels_.pop_back();
  if (!level.isEmpty) startLine();
  out_ << level.closing;
  if (levels_.empty()) out_ << '\n';
}

void JsonWriter::key(std::string_view key) {
  separate();
  out_ << quoted(key) << ": ";
  isAfterKey_ = true;
}

void JsonWriter::text(std::string_view text) {
  separate();
  out_ << quoted(text);
}

void JsonWriter::literal(std::string_view literal) {
  separate();
  out_ << literal;
}

}  // namespace ovbook
