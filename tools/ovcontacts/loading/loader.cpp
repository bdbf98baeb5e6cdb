#include "loading/loader.h"

#include <chrono>
#include <new>
#include <thread>
#include <utility>

#include "loading/mailbox.h"

namespace ovcontacts {

/// What the two threads share. It outlives the loader where the thread does.
struct Loader::Job {
  Job(std::shared_ptr<BookSource> itsSource, Loader* loader)
      : source(std::move(itsSource)), mailbox(std::make_shared<Mailbox>(loader)) {}

  const std::shared_ptr<BookSource> source;
  Cancellation cancellation;
  const std::shared_ptr<Mailbox> mailbox;

  void forget() {
    cancellation.cancel();
    mailbox->close();
  }
};

Loader::Loader(QObject* parent) : QObject(parent) {}

Loader::~Loader() {
  if (job_ != nullptr) job_->forget();
}

void Loader::start(std::shared_ptr<BookSource> source) {
  if (job_ != nullptr) job_->forget();
  job_ = std::make_shared<Job>(std::move(source), this);
  std::thread([this, job = job_] { run(job); }).detach();
}

void Loader::cancel() {
  if (job_ == nullptr) return;
  job_->forget();
  job_.reset();
  emit cancelled();
}

/// On the job's thread: the loader is there for letters only.
void Loader::run(const std::shared_ptr<Job>& job) {
  using Clock = std::chrono::steady_clock;
  constexpr auto kBetweenReports = std::chrono::milliseconds(50);
  auto next = Clock::now();
  const auto progress = [&](std::uint64_t done, std::uint64_t all) {
    job->cancellation.check();
    if (all != 0 && Clock::now() < next) return;
    next = Clock::now() + kBetweenReports;
    job->mailbox->post([=, this] { emit progressed(done, all); });
  };
  const auto fail = [&](const QString& reason) {
    job->mailbox->post([this, name = job->source->name(), reason] {
      std::exchange(job_, nullptr)->mailbox->close();
      emit failed(name, reason);
    });
  };
  try {
    const OpenedBook book = job->source->open(progress, job->cancellation);
    job->mailbox->post([this, book] {
      std::exchange(job_, nullptr)->mailbox->close();
      emit opened(book);
    });
  } catch (const Cancelled&) {  // nobody waits for it
  } catch (const std::bad_alloc&) {
    fail(tr("There is not enough memory."));
  } catch (const std::exception& error) {
    fail(QString::fromUtf8(error.what()));
  }
}

}  // namespace ovcontacts
