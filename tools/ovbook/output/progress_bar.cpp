#include "output/progress_bar.h"

#include <algorithm>
#include <ostream>

namespace ovbook {

namespace {

constexpr std::chrono::milliseconds kPatience{500};
constexpr std::chrono::milliseconds kPause{50};
constexpr unsigned kCells = 30;

unsigned percentOf(std::uint64_t done, std::uint64_t total) {
  if (total == 0) return 0;
  return static_cast<unsigned>(100.0 * static_cast<double>(std::min(done, total)) /
                               static_cast<double>(total));
}

}  // namespace

ProgressBar::ProgressBar(std::ostream& terminal, std::string task, Clock clock)
    : terminal_(terminal),
      task_(std::move(task)),
      clock_(std::move(clock)),
      next_(clock_() + kPatience) {}

ProgressBar::~ProgressBar() {
  if (isVisible_) terminal_ << "\r\033[K" << std::flush;
}

void ProgressBar::show(std::uint64_t done, std::uint64_t total) {
  const Time now = clock_();
  const unsigned percent = percentOf(done, total);
  if (now < next_ || (isVisible_ && percent == shownPercent_)) return;
  const unsigned filled = percent * kCells / 100;
  terminal_ << '\r' << task_ << " [" << std::string(filled, '#')
            << std::string(kCells - filled, ' ') << "] " << percent << " %" << std::flush;
  next_ = now + kPause;
  shownPercent_ = percent;
  isVisible_ = true;
}

}  // namespace ovbook
