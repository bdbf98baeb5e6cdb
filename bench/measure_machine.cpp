// Measures what the machine needs for the work that neither saving nor restoring can avoid: to walk
// over the objects, to copy the block, and to have the system clear fresh memory. Prints one line
// of JSON: seconds for a book of PERSONS, and seconds a byte.

#include <sys/mman.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include "meter.h"
#include "plain_graph.h"

namespace {

constexpr std::size_t kBytes = std::size_t{256} << 20U;
constexpr std::size_t kPage = 4096;
constexpr int kRuns = 5;

/// Keeps a result from being optimised away.
std::size_t sink = 0;

struct Walker {
  void operator()(const std::string& text) const { sink += text.size(); }
  void operator()(const plain::Value& value) const {
    if (const auto* multiple = dynamic_cast<const plain::MultipleValue*>(&value)) {
      for (const auto& each : multiple->values) (*this)(*each);
    } else {
      const auto& single = static_cast<const plain::SingleValue&>(value);
      (*this)(single.label->name);
      (*this)(single.label->displayName);
      datum(*single.value);
    }
  }
  void datum(const plain::Object& object) const {
    if (const auto* text = dynamic_cast<const plain::Text*>(&object)) {
      (*this)(text->text);
    } else if (const auto* address = dynamic_cast<const plain::Address*>(&object)) {
      for (const auto& [key, text] : address->values) (*this)(text);
    } else if (const auto* name = dynamic_cast<const plain::PersonName*>(&object)) {
      (*this)(name->first);
      (*this)(name->middle);
      (*this)(name->last);
    } else {
      sink += reinterpret_cast<std::uintptr_t>(&object) & 1U;
    }
  }
};

double walking(std::uint32_t count) {
  const auto graph = plain::book(count);
  return bench::measure(
             kRuns,
             [&] {
               for (const auto& [ID, person] : graph->persons) {
                 for (const auto& [name, value] : person->values) Walker()(*value);
               }
             },
             [] {})
      .seconds;
}

/// A byte of memory that the process has not used before.
double clearing() {
  char* memory = nullptr;
  const auto clear = [&] {
    void* const mapped =
        ::mmap(nullptr, kBytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED) throw std::runtime_error("no memory");
    memory = static_cast<char*>(mapped);
    for (std::size_t at = 0; at < kBytes; at += kPage) memory[at] = 1;
  };
  return bench::measure(kRuns, clear, [&] { ::munmap(memory, kBytes); }).seconds / kBytes;
}

/// A byte, from memory to memory.
double copying() {
  const std::vector<char> from(kBytes, 'x');
  std::vector<char> to(kBytes, 'y');
  const auto copy = [&] { std::memcpy(to.data(), from.data(), kBytes); };
  const double seconds = bench::measure(kRuns, copy, [] {}).seconds;
  sink += static_cast<std::size_t>(to.back());
  return seconds / kBytes;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::fputs("usage: measure_machine PERSONS\n", stderr);
    return 2;
  }
  const auto persons = static_cast<std::uint32_t>(std::strtoul(arguments[1], nullptr, 10));
  std::printf("{\"persons\": %u, \"walking\": %.6f, \"clearing\": %.4e, \"copying\": %.4e}\n",
              persons, walking(persons), clearing(), copying());
  return sink == 0 ? 1 : 0;
}
