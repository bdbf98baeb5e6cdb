#include "output/descriptor_buffer.h"

#include <unistd.h>

#include <cerrno>

namespace ovbook {

DescriptorBuffer::DescriptorBuffer(int descriptor) : descriptor_(descriptor) {
  setp(pending_.data(), pending_.data() + pending_.size());
}

DescriptorBuffer::int_type DescriptorBuffer::overflow(int_type character) {
  sync();
  if (!traits_type::eq_int_type(character, traits_type::eof())) {
    sputc(traits_type::to_char_type(character));
  }
  return traits_type::not_eof(character);
}

int DescriptorBuffer::sync() {
  const char* next = pbase();
  const char* const end = pptr();
  setp(pending_.data(), pending_.data() + pending_.size());
  while (next != end) {
    const ssize_t written = write(descriptor_, next, static_cast<std::size_t>(end - next));
    if (written >= 0) {
      next += written;
    } else if (errno != EINTR) {
      throw OutputError(errno);
    }
  }
  return 0;
}

}  // namespace ovbook
