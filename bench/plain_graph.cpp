#include "plain_graph.h"

#include <chrono>

#include "sample_persons.h"

namespace plain {

namespace {

std::shared_ptr<SingleValue> labelled(std::shared_ptr<Object> datum, const std::string& name,
                                      std::int32_t type) {
  auto value = std::make_shared<SingleValue>();
  value->label = std::make_shared<Label>();
  value->label->name = value->label->displayName = name;
  value->value = std::move(datum);
  value->type = type;
  return value;
}

template <class T>
std::shared_ptr<MultipleValue> multiple(const std::array<std::string, 2>& texts,
                                        std::string T::*field,
                                        const std::array<const char*, 2>& labels,
                                        std::int32_t type) {
  auto value = std::make_shared<MultipleValue>();
  value->type = 12;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    auto datum = std::make_shared<T>();
    (*datum).*field = texts[i];
    value->values.push_back(labelled(datum, labels[i], type));
  }
  value->mainValue = value->values.front();
  return value;
}

std::shared_ptr<Text> text(const std::string& content) {
  auto made = std::make_shared<Text>();
  made->text = content;
  return made;
}

std::shared_ptr<Date> birthday(const bench::SamplePerson& sample) {
  using namespace std::chrono;
  const sys_days day =
      year(sample.birthYear) / month(sample.birthMonth) / std::chrono::day(sample.birthDay);
  auto date = std::make_shared<Date>();
  date->seconds = static_cast<double>((day - sys_days(year(2001) / 1 / 1)).count()) * 86400;
  return date;
}

std::shared_ptr<MultipleValue> addresses(const bench::SamplePerson& sample) {
  auto address = std::make_shared<Address>();
  address->countryCode = sample.countryCode;
  address->values = {{"OVAddressFieldStreet", sample.street},
                     {"OVAddressFieldCity", sample.city},
                     {"OVAddressFieldProvince", sample.province},
                     {"OVAddressFieldPostalCode", sample.postalCode}};
  auto value = std::make_shared<MultipleValue>();
  value->type = 12;
  value->values.push_back(labelled(address, bench::kAddressLabel, 9));
  value->mainValue = value->values.front();
  return value;
}

std::shared_ptr<Person> personOf(const bench::SamplePerson& sample) {
  auto person = std::make_shared<Person>();
  person->id = sample.id;
  auto name = std::make_shared<PersonName>();
  name->first = sample.first;
  name->middle = sample.middle;
  name->last = sample.last;
  person->values["Name"] = labelled(name, "Name", 8);
  person->values["Company"] = labelled(text(sample.company), "Company", 0);
  person->values["JobTitle"] = labelled(text(sample.jobTitle), "Job Title", 0);
  person->values["Birthday"] = labelled(birthday(sample), "Birthday", 3);
  person->values["Note"] = labelled(text(sample.note), "Note", 11);
  person->values["Phone"] = multiple(sample.phones, &Phone::number, bench::kPhoneLabels, 6);
  person->values["Email"] = multiple(sample.emails, &Email::address, bench::kEmailLabels, 7);
  person->values["Address"] = addresses(sample);
  return person;
}

}  // namespace

std::shared_ptr<Book> book(std::uint32_t count) {
  auto made = std::make_shared<Book>();
  for (std::uint32_t i = 0; i < count; ++i) {
    auto person = personOf(bench::samplePerson(i));
    made->persons.emplace(person->id, person);
  }
  return made;
}

}  // namespace plain
