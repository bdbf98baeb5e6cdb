#include <istream>
#include <ostream>

#include <cereal/archives/binary.hpp>
#include <cereal/types/map.hpp>
#include <cereal/types/memory.hpp>
#include <cereal/types/polymorphic.hpp>
#include <cereal/types/string.hpp>
#include <cereal/types/vector.hpp>

#include "codec.h"
#include "memory_stream.h"
#include "plain_serialize.h"

namespace plain {

template <class Archive, class T>
requires requires(Archive& archive, T& object) { fields(archive, object); }
void serialize(Archive& archive, T& object) { fields(archive, object); }

}  // namespace plain

CEREAL_REGISTER_TYPE(plain::Text)
CEREAL_REGISTER_TYPE(plain::Date)
CEREAL_REGISTER_TYPE(plain::PersonName)
CEREAL_REGISTER_TYPE(plain::Phone)
CEREAL_REGISTER_TYPE(plain::Email)
CEREAL_REGISTER_TYPE(plain::Address)
CEREAL_REGISTER_TYPE(plain::SingleValue)
CEREAL_REGISTER_TYPE(plain::MultipleValue)
CEREAL_REGISTER_POLYMORPHIC_RELATION(plain::Object, plain::Text)
CEREAL_REGISTER_POLYMORPHIC_RELATION(plain::Object, plain::Date)
CEREAL_REGISTER_POLYMORPHIC_RELATION(plain::Object, plain::PersonName)
CEREAL_REGISTER_POLYMORPHIC_RELATION(plain::Object, plain::Phone)
CEREAL_REGISTER_POLYMORPHIC_RELATION(plain::Object, plain::Email)
CEREAL_REGISTER_POLYMORPHIC_RELATION(plain::Object, plain::Address)
CEREAL_REGISTER_POLYMORPHIC_RELATION(plain::Object, plain::Value)
CEREAL_REGISTER_POLYMORPHIC_RELATION(plain::Value, plain::SingleValue)
CEREAL_REGISTER_POLYMORPHIC_RELATION(plain::Value, plain::MultipleValue)

namespace bench {

Codec cerealCodec() {
  return {"cereal", [](unsigned count) { return plain::book(count); },
          [](const std::shared_ptr<void>& book, std::size_t& bytes) {
            auto block = std::make_shared<std::string>();
            Appender appender(*block);
            std::ostream stream(&appender);
            cereal::BinaryOutputArchive archive(stream);
            archive(std::static_pointer_cast<plain::Book>(book));
            bytes = block->size();
            return block;
          },
          [](const std::shared_ptr<void>& block) {
            Reader reader(*std::static_pointer_cast<std::string>(block));
            std::istream stream(&reader);
            cereal::BinaryInputArchive archive(stream);
            std::shared_ptr<plain::Book> book;
            archive(book);
            return book;
          }};
}

}  // namespace bench
