// The thread's queue is a source of its main context: GLib's own signals and what is posted run in
// turn.

#include "worker.h"

#include <algorithm>
#include <deque>
#include <map>
#include <mutex>
#include <utility>

namespace ov::eds {

struct Worker::Shared {
  struct Timed {
    Clock::time_point time;
    std::function<void()> work;
  };

  Shared() : context(g_main_context_new()) {}
  Shared(const Shared&) = delete;
  Shared& operator=(const Shared&) = delete;
  ~Shared() { g_main_context_unref(context); }

  GMainContext* const context;
  std::mutex mutex;
  std::deque<std::function<void()>> posted;
  std::map<Timer, Timed> timers;
  Timer lastTimer = 0;
  bool ends = false;

  /// Of at least one timer. There are only a few.
  [[nodiscard]] std::map<Timer, Timed>::iterator next() {
    return std::min_element(timers.begin(), timers.end(), [](const auto& a, const auto& b) {
      return a.second.time < b.second.time;
    });
  }

  void wake() const { g_main_context_wakeup(context); }

  /// Milliseconds until something is due; -1 when nothing is.
  int wait() {
    const std::lock_guard lock(mutex);
    if (!posted.empty() || ends) return 0;
    if (timers.empty()) return -1;
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(next()->second.time - Clock::now());
    constexpr std::int64_t kLongest = 60'000;
    return static_cast<int>(std::clamp<std::int64_t>(left.count(), 0, kLongest));
  }

  void runWhatIsDue() {
    std::unique_lock lock(mutex);
    while (!timers.empty() && next()->second.time <= Clock::now()) {
      const auto work = std::move(timers.extract(next()).mapped().work);
      lock.unlock();
      work();
      lock.lock();
    }
    std::deque<std::function<void()>> now;
    now.swap(posted);
    lock.unlock();
    for (const auto& work : now) work();
  }
};

namespace {

/// A source of the main context: the queue.
struct QueueSource {
  GSource base;
  void* shared;
};

}  // namespace

std::shared_ptr<Worker> Worker::ofThisProcess() {
  static std::mutex mutex;
  static std::weak_ptr<Worker> current;
  const std::lock_guard lock(mutex);
  auto worker = current.lock();
  if (worker == nullptr) {
    worker = std::make_shared<Worker>();
    current = worker;
  }
  return worker;
}

Worker::Worker() : shared_(std::make_shared<Shared>()) {
  thread_ = std::thread([shared = shared_] { run(shared); });
}

Worker::~Worker() {
  {
    const std::lock_guard lock(shared_->mutex);
    shared_->ends = true;
  }
  shared_->wake();
  isThisThread() ? thread_.detach() : thread_.join();
}

void Worker::post(std::function<void()> work) {
  {
    const std::lock_guard lock(shared_->mutex);
    shared_->posted.push_back(std::move(work));
  }
  shared_->wake();
}

Worker::Timer Worker::callAt(Clock::time_point time, std::function<void()> work) {
  Timer timer = 0;
  {
    const std::lock_guard lock(shared_->mutex);
    timer = ++shared_->lastTimer;
    shared_->timers.emplace(timer, Shared::Timed{time, std::move(work)});
  }
  shared_->wake();
  return timer;
}

void Worker::cancel(Timer timer) {
  const std::lock_guard lock(shared_->mutex);
  shared_->timers.erase(timer);
}

bool Worker::isThisThread() const { return std::this_thread::get_id() == thread_.get_id(); }

void Worker::run(const std::shared_ptr<Shared>& shared) {
  static GSourceFuncs functions{
      [](GSource* source, gint* timeout) -> gboolean {
        *timeout = static_cast<Shared*>(reinterpret_cast<QueueSource*>(source)->shared)->wait();
        return *timeout == 0 ? TRUE : FALSE;
      },
      [](GSource* source) -> gboolean {
        return static_cast<Shared*>(reinterpret_cast<QueueSource*>(source)->shared)->wait() == 0
                   ? TRUE
                   : FALSE;
      },
      [](GSource* source, GSourceFunc /*callback*/, gpointer /*data*/) -> gboolean {
        static_cast<Shared*>(reinterpret_cast<QueueSource*>(source)->shared)->runWhatIsDue();
        return G_SOURCE_CONTINUE;
      },
      nullptr,
      nullptr,
      nullptr};
  GMainContext* const context = shared->context;
  g_main_context_push_thread_default(context);
  GSource* const source = g_source_new(&functions, sizeof(QueueSource));
  reinterpret_cast<QueueSource*>(source)->shared = shared.get();
  g_source_attach(source, context);
  for (;;) {
    {
      const std::lock_guard lock(shared->mutex);
      if (shared->ends && shared->posted.empty()) break;
    }
    g_main_context_iteration(context, TRUE);
  }
  g_source_destroy(source);
  g_source_unref(source);
  // What the service still had to report is released with its objects.
  while (g_main_context_iteration(context, FALSE) != FALSE) {
  }
  g_main_context_pop_thread_default(context);
}

}  // namespace ov::eds
