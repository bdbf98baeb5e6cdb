#include "loading/turns.h"

namespace ovcontacts {

void Turns::take() {
  std::unique_lock lock(mutex_);
  if (whose_ == Whose::OnlyWorkers) return;
  whose_ = Whose::Wanted;
  mailbox_->post([self = shared_from_this()] { self->halt(); });
  changed_.wait(lock, [this] { return whose_ == Whose::Workers || whose_ == Whose::OnlyWorkers; });
}

void Turns::giveBack() {
  const std::lock_guard lock(mutex_);
  if (whose_ == Whose::OnlyWorkers) return;
  whose_ = Whose::Owners;
  changed_.notify_all();
}

void Turns::leave() {
  const std::lock_guard lock(mutex_);
  whose_ = Whose::OnlyWorkers;
  changed_.notify_all();
}

void Turns::halt() {
  std::unique_lock lock(mutex_);
  if (whose_ != Whose::Wanted) return;
  whose_ = Whose::Workers;
  changed_.notify_all();
  changed_.wait(lock, [this] { return whose_ != Whose::Workers; });
}

}  // namespace ovcontacts
