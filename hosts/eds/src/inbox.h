#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace ov::eds {

/// What the service has reported about a book and nobody has read yet. Any thread may use it.
class Inbox {
 public:
  /// By UID: the card as last reported, or nothing for one that is gone.
  using News = std::map<std::string, std::optional<std::string>>;
  struct Content {
    News news;
    /// Everything has to be read again: some news may have been missed.
    bool isIncomplete = false;
  };

  /// True when nothing waited before.
  bool add(std::string uid, std::optional<std::string> card) {
    const std::lock_guard lock(mutex_);
    const bool isFirst = isEmpty();
    content_.news[std::move(uid)] = std::move(card);
    return isFirst;
  }
  bool addIncomplete() {
    const std::lock_guard lock(mutex_);
    const bool isFirst = isEmpty();
    content_.isIncomplete = true;
    return isFirst;
  }
  [[nodiscard]] Content take() {
    const std::lock_guard lock(mutex_);
    return std::exchange(content_, {});
  }
  /// Puts back what could not be looked at; what has come meanwhile is newer.
  void putBack(Content content) {
    const std::lock_guard lock(mutex_);
    content_.isIncomplete |= content.isIncomplete;
    content_.news.merge(content.news);
  }
  [[nodiscard]] bool empty() const {
    const std::lock_guard lock(mutex_);
    return isEmpty();
  }

 private:
  [[nodiscard]] bool isEmpty() const { return content_.news.empty() && !content_.isIncomplete; }

  mutable std::mutex mutex_;
  Content content_;
};

}  // namespace ov::eds
