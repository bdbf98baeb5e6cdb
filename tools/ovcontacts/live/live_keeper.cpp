// Each job has a thread of its own, which touches the book only in its turn, while the windows'
// thread waits. A keeper that goes does not wait for its job: what they share outlives both.

#include "live/live_keeper.h"

#include <new>
#include <thread>
#include <utility>

#include "loading/mailbox.h"
#include "loading/turns.h"

namespace ovcontacts {

/// What the two threads share.
struct LiveKeeper::Job {
  Job(Task itsTask, std::shared_ptr<LiveBook> itsBook, LiveKeeper* keeper)
      : task(itsTask),
        live(std::move(itsBook)),
        mailbox(std::make_shared<Mailbox>(keeper)),
        turns(std::make_shared<Turns>(mailbox)) {}

  const Task task;
  const std::shared_ptr<LiveBook> live;
  const std::shared_ptr<Mailbox> mailbox;
  const std::shared_ptr<Turns> turns;
  std::stop_source stop;
};

LiveKeeper::LiveKeeper(std::shared_ptr<LiveBook> live, OVQtBook* book, QObject* parent)
    : QObject(parent), live_(std::move(live)), book_(book), news_(std::make_shared<Mailbox>(this)) {
  live_->setCallback([this, news = news_] { news->post([this] { emit changed(); }); });
}

LiveKeeper::~LiveKeeper() {
  live_->setCallback({});
  news_->close();
  if (job_ == nullptr) return;
  job_->stop.request_stop();
  job_->turns->leave();
  job_->mailbox->close();
}

bool LiveKeeper::isSaving() const {
  return next_ == Task::Save || (job_ != nullptr && job_->task == Task::Save);
}

void LiveKeeper::save() { begin(Task::Save); }
void LiveKeeper::refresh() { begin(Task::Refresh); }
void LiveKeeper::apply() { begin(Task::Apply); }

void LiveKeeper::stop() {
  next_ = Task::None;
  if (job_ != nullptr) job_->stop.request_stop();
}

/// A refresh gives way to anything else; the rest comes one after the other, saving first.
void LiveKeeper::begin(Task task) {
  if (job_ != nullptr) {
    if (job_->task == task || next_ == Task::Save) return;
    next_ = task;
    if (job_->task == Task::Refresh) job_->stop.request_stop();
    return;
  }
  job_ = std::make_shared<Job>(task, live_, this);
  book_->setReadOnly(task != Task::Refresh);
  std::thread([this, job = job_] { run(job); }).detach();
  emit changed();
}

/// On the job's thread: the keeper is there for letters only.
void LiveKeeper::run(const std::shared_ptr<Job>& job) {
  LiveCall call;
  call.stop = job->stop.get_token();
  call.around = [&turns = *job->turns](const std::function<void()>& request) {
    turns.giveBack();
    request();
    turns.take();
  };
  call.progress = [this, &job](std::uint64_t done, std::uint64_t all) {
    job->mailbox->post([=, this] { emit progressed(done, all); });
  };
  QString wrong;
  LiveChanges changes;
  job->turns->take();
  try {
    if (job->task == Task::Save) wrong = job->live->save(call);
    if (job->task == Task::Refresh) wrong = job->live->refresh(call);
    if (job->task == Task::Apply) wrong = job->live->apply(call, changes);
  } catch (const std::bad_alloc&) {
    wrong = tr("There is not enough memory.");
  } catch (const std::exception& error) {
    wrong = QString::fromUtf8(error.what());
  }
  job->mailbox->post([this, task = job->task, wrong, changes] { end(task, wrong, changes); });
  changes = {};
  job->turns->giveBack();
}

void LiveKeeper::end(Task task, const QString& wrong, const LiveChanges& changes) {
  const bool wasStopped = job_->stop.stop_requested();
  std::exchange(job_, nullptr)->mailbox->close();
  book_->setReadOnly(false);
  follow(changes);
  if (task == Task::Save) emit saved(wrong);
  if (task == Task::Refresh && !wasStopped) emit refreshed(wrong);
  if (task == Task::Apply) emit applied(static_cast<qsizetype>(changes.count), wrong);
  if (const Task next = std::exchange(next_, Task::None); next != Task::None) begin(next);
  emit changed();
}

/// The book itself reports only names, phones, e-mail addresses, and who came and went.
void LiveKeeper::follow(const LiveChanges& changes) {
  for (const auto& person : changes.persons) emit book_->personChanged(person, nullptr);
  if (!changes.persons.empty()) emit book_->tagsChanged();
  if (changes.hasGroups) emit book_->groupsChanged();
}

void LiveKeeper::resolve(const OVString& conflictID, LiveChoice choice) {
  live_->resolve(conflictID, choice);
  emit book_->personsReset();
  emit book_->groupsChanged();
  emit book_->tagsChanged();
  emit changed();
}

}  // namespace ovcontacts
