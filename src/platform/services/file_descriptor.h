#pragma once

#include <unistd.h>

namespace ov {

/// An open file, closed at the end. Negative when it could not be opened.
class FileDescriptor {
 public:
  explicit FileDescriptor(int number) : number_(number) {}
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  ~FileDescriptor() {
    if (number_ >= 0) ::close(number_);
  }

  [[nodiscard]] int number() const { return number_; }

 private:
  const int number_;
};

}  // namespace ov
