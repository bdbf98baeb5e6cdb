#pragma once

#include "plain_graph.h"

/// One declaration of each class's fields serves both serialisation libraries.
namespace plain {

template <class Archive>
void fields(Archive& /*archive*/, Object& /*object*/) {}

template <class Archive>
void fields(Archive& archive, Text& object) {
  archive& object.text;
}
template <class Archive>
void fields(Archive& archive, Date& object) {
  archive& object.seconds;
}
template <class Archive>
void fields(Archive& archive, Label& object) {
  archive& object.name& object.displayName;
}
template <class Archive>
void fields(Archive& archive, PersonName& object) {
  archive& object.first& object.middle& object.last;
}
template <class Archive>
void fields(Archive& archive, Phone& object) {
  archive& object.number& object.valid;
}
template <class Archive>
void fields(Archive& archive, Email& object) {
  archive& object.address& object.valid;
}
template <class Archive>
void fields(Archive& archive, Address& object) {
  archive& object.values& object.countryCode;
}
template <class Archive>
void fields(Archive& archive, SingleValue& object) {
  archive& object.type& object.label& object.value;
}
template <class Archive>
void fields(Archive& archive, MultipleValue& object) {
  archive& object.type& object.values& object.mainValue;
}
template <class Archive>
void fields(Archive& archive, Person& object) {
  archive& object.id& object.values;
}
template <class Archive>
void fields(Archive& archive, Book& object) {
  archive& object.persons;
}

}  // namespace plain
