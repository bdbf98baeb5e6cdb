#include "patch.h"

#include <algorithm>

namespace ov::card {

bool Patch::isEmpty() const {
  return inserted_.empty() && std::find(isKept_.begin(), isKept_.end(), false) == isKept_.end();
}

void Patch::write(std::string& out) const {
  std::size_t from = 0;
  const auto insertedAt = [&](std::size_t line) {
    const auto at = inserted_.find(line);
    return at == inserted_.end() ? std::string_view() : std::string_view(at->second);
  };
  for (std::size_t i = 0; i < isKept_.size(); ++i) {
    const std::string_view line = card_.lines[i].source();
    const auto begin = static_cast<std::size_t>(line.data() - card_.source.data());
    out.append(card_.source.substr(from, begin - from)).append(insertedAt(i));
    if (isKept_[i]) out += line;
    from = begin + line.size();
  }
  std::string_view rest = card_.rest;
  const std::string_view last = insertedAt(end());
  if (!last.empty() && rest.starts_with(card_.lineEnd) && from == card_.source.size()) {
    out += card_.lineEnd;
    rest.remove_prefix(card_.lineEnd.size());
  }
  out.append(last).append(card_.source.substr(from)).append(rest);
}

}  // namespace ov::card
