#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

/// The measured book as a C++ programmer would write it down for a serialisation library: the same
/// objects, referring to each other through `std::shared_ptr`.
namespace plain {

struct Object {
  virtual ~Object() = default;
};

struct Text : Object {
  std::string text;
};

struct Date : Object {
  double seconds = 0;
};

struct Label {
  std::string name;
  std::string displayName;
};

struct PersonName : Object {
  std::string first, middle, last;
};

struct Phone : Object {
  std::string number;
  bool valid = true;
};

struct Email : Object {
  std::string address;
  bool valid = true;
};

struct Address : Object {
  std::map<std::string, std::string> values;
  std::string countryCode;
};

struct Value : Object {
  std::int32_t type = 0;
};

struct SingleValue : Value {
  std::shared_ptr<Label> label;
  std::shared_ptr<Object> value;
};

struct MultipleValue : Value {
  std::vector<std::shared_ptr<SingleValue>> values;
  std::shared_ptr<SingleValue> mainValue;
};

struct Person {
  std::string id;
  std::map<std::string, std::shared_ptr<Value>> values;
};

struct Book {
  std::map<std::string, std::shared_ptr<Person>> persons;
};

/// The first `count` sample persons; every value has a label of its own.
[[nodiscard]] std::shared_ptr<Book> book(std::uint32_t count);

}  // namespace plain
