#include "loading/loader.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>

#include <chrono>
#include <functional>
#include <mutex>
#include <new>
#include <thread>
#include <utility>

namespace ovcontacts {

/// What the two threads share. It outlives the loader where the thread does.
struct Loader::Job {
  std::shared_ptr<BookSource> source;
  Cancellation cancellation;
  std::mutex mutex;
  Loader* loader = nullptr;  // null once nobody wants to know

  void forget() {
    cancellation.cancel();
    const std::lock_guard lock(mutex);
    loader = nullptr;
  }
};

/// Something to be done on the loader's thread, unless the job is not wanted any more by then.
class Loader::Told final : public QEvent {
 public:
  using Tell = std::function<void(Loader&)>;

  static void post(const std::shared_ptr<Job>& job, Tell tell) {
    const std::lock_guard lock(job->mutex);
    if (job->loader == nullptr) return;
    // The queue's from now on.
    QCoreApplication::postEvent(job->loader, new Told(job, std::move(tell)));
  }
  Told(std::shared_ptr<Job> job, Tell tell)
      : QEvent(QEvent::User), job_(std::move(job)), tell_(std::move(tell)) {}

  void run(Loader& loader) const {
    if (job_->loader != nullptr) tell_(loader);
  }

 private:
  std::shared_ptr<Job> job_;
  Tell tell_;
};

bool Loader::event(QEvent* event) {
  const auto* const told = dynamic_cast<const Told*>(event);
  if (told == nullptr) return QObject::event(event);
  told->run(*this);
  return true;
}

Loader::Loader(QObject* parent) : QObject(parent) {}

Loader::~Loader() {
  if (job_ != nullptr) job_->forget();
}

void Loader::start(std::shared_ptr<BookSource> source) {
  if (job_ != nullptr) job_->forget();
  job_ = std::make_shared<Job>();
  job_->source = std::move(source);
  job_->loader = this;
  std::thread([job = job_] { run(job); }).detach();
}

void Loader::cancel() {
  if (job_ == nullptr) return;
  job_->forget();
  job_.reset();
  emit cancelled();
}

void Loader::run(const std::shared_ptr<Job>& job) {
  using Clock = std::chrono::steady_clock;
  constexpr auto kBetweenReports = std::chrono::milliseconds(50);
  auto next = Clock::now();
  const auto progress = [&](std::uint64_t done, std::uint64_t all) {
    job->cancellation.check();
    if (all != 0 && Clock::now() < next) return;
    next = Clock::now() + kBetweenReports;
    Told::post(job, [=](Loader& loader) { emit loader.progressed(done, all); });
  };
  const auto fail = [&](const QString& reason) {
    Told::post(job, [name = job->source->name(), reason](Loader& loader) {
      loader.job_.reset();
      emit loader.failed(name, reason);
    });
  };
  try {
    const OpenedBook book = job->source->open(progress, job->cancellation);
    Told::post(job, [book](Loader& loader) {
      loader.job_.reset();
      emit loader.opened(book);
    });
  } catch (const Cancelled&) {  // nobody waits for it
  } catch (const std::bad_alloc&) {
    fail(tr("There is not enough memory."));
  } catch (const std::exception& error) {
    fail(QString::fromUtf8(error.what()));
  }
}

}  // namespace ovcontacts
