#include <istream>
#include <ostream>

#include <boost/archive/binary_iarchive.hpp>
#include <boost/archive/binary_oarchive.hpp>
#include <boost/serialization/export.hpp>
#include <boost/serialization/map.hpp>
#include <boost/serialization/shared_ptr.hpp>
#include <boost/serialization/string.hpp>
#include <boost/serialization/vector.hpp>

#include "codec.h"
#include "memory_stream.h"
#include "plain_serialize.h"

namespace plain {

template <class Archive, class T>
requires requires(Archive& archive, T& object) { fields(archive, object); }
void serialize(Archive& archive, T& object, const unsigned /*version*/) { fields(archive, object); }

}  // namespace plain

BOOST_CLASS_EXPORT(plain::Text)
BOOST_CLASS_EXPORT(plain::Date)
BOOST_CLASS_EXPORT(plain::PersonName)
BOOST_CLASS_EXPORT(plain::Phone)
BOOST_CLASS_EXPORT(plain::Email)
BOOST_CLASS_EXPORT(plain::Address)
BOOST_CLASS_EXPORT(plain::SingleValue)
BOOST_CLASS_EXPORT(plain::MultipleValue)

namespace bench {

namespace {

template <class Derived, class Base>
void relate() {
  boost::serialization::void_cast_register<Derived, Base>();
}

void registerClasses() {
  relate<plain::Text, plain::Object>();
  relate<plain::Date, plain::Object>();
  relate<plain::PersonName, plain::Object>();
  relate<plain::Phone, plain::Object>();
  relate<plain::Email, plain::Object>();
  relate<plain::Address, plain::Object>();
  relate<plain::Value, plain::Object>();
  relate<plain::SingleValue, plain::Value>();
  relate<plain::MultipleValue, plain::Value>();
}

}  // namespace

Codec boostCodec() {
  registerClasses();
  return {"Boost.Serialization", [](unsigned count) { return plain::book(count); },
          [](const std::shared_ptr<void>& book, std::size_t& bytes) {
            auto block = std::make_shared<std::string>();
            Appender appender(*block);
            boost::archive::binary_oarchive archive(appender);
            const auto typed = std::static_pointer_cast<plain::Book>(book);
            archive << typed;
            bytes = block->size();
            return block;
          },
          [](const std::shared_ptr<void>& block) {
            Reader reader(*std::static_pointer_cast<std::string>(block));
            boost::archive::binary_iarchive archive(reader);
            std::shared_ptr<plain::Book> book;
            archive >> book;
            return book;
          }};
}

}  // namespace bench
