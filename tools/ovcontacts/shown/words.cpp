#include "shown/words.h"

#include <QtCore/QCoreApplication>

#include <array>

namespace ovcontacts {

namespace {

// Named here so that the translators' tools find them.
[[maybe_unused]] constexpr std::array kWords{QT_TRANSLATE_NOOP("Words", "Thumbnail"),
                                             QT_TRANSLATE_NOOP("Words", "Name"),
                                             QT_TRANSLATE_NOOP("Words", "Tags"),
                                             QT_TRANSLATE_NOOP("Words", "Phone"),
                                             QT_TRANSLATE_NOOP("Words", "Email"),
                                             QT_TRANSLATE_NOOP("Words", "Prefix"),
                                             QT_TRANSLATE_NOOP("Words", "Suffix"),
                                             QT_TRANSLATE_NOOP("Words", "Maiden Name"),
                                             QT_TRANSLATE_NOOP("Words", "Nickname"),
                                             QT_TRANSLATE_NOOP("Words", "Company"),
                                             QT_TRANSLATE_NOOP("Words", "Department"),
                                             QT_TRANSLATE_NOOP("Words", "Job Title"),
                                             QT_TRANSLATE_NOOP("Words", "Birthday"),
                                             QT_TRANSLATE_NOOP("Words", "First Name Phonetic"),
                                             QT_TRANSLATE_NOOP("Words", "Last Name Phonetic"),
                                             QT_TRANSLATE_NOOP("Words", "URL"),
                                             QT_TRANSLATE_NOOP("Words", "Instant Message"),
                                             QT_TRANSLATE_NOOP("Words", "Address"),
                                             QT_TRANSLATE_NOOP("Words", "Related Names"),
                                             QT_TRANSLATE_NOOP("Words", "Note"),
                                             QT_TRANSLATE_NOOP("Words", "Other"),
                                             QT_TRANSLATE_NOOP("Words", "Date"),
                                             QT_TRANSLATE_NOOP("Words", "Is Organization"),
                                             QT_TRANSLATE_NOOP("Words", "Home"),
                                             QT_TRANSLATE_NOOP("Words", "Work"),
                                             QT_TRANSLATE_NOOP("Words", "Mobile"),
                                             QT_TRANSLATE_NOOP("Words", "Work fax"),
                                             QT_TRANSLATE_NOOP("Words", "Home fax"),
                                             QT_TRANSLATE_NOOP("Words", "Pager"),
                                             QT_TRANSLATE_NOOP("Words", "Anniversary"),
                                             QT_TRANSLATE_NOOP("Words", "Spouse"),
                                             QT_TRANSLATE_NOOP("Words", "Child"),
                                             QT_TRANSLATE_NOOP("Words", "Parent"),
                                             QT_TRANSLATE_NOOP("Words", "Friend"),
                                             QT_TRANSLATE_NOOP("Words", "Assistant"),
                                             QT_TRANSLATE_NOOP("Words", "Home page"),
                                             QT_TRANSLATE_NOOP("Words", "Street"),
                                             QT_TRANSLATE_NOOP("Words", "City"),
                                             QT_TRANSLATE_NOOP("Words", "Country"),
                                             QT_TRANSLATE_NOOP("Words", "Province"),
                                             QT_TRANSLATE_NOOP("Words", "State"),
                                             QT_TRANSLATE_NOOP("Words", "Postal Code"),
                                             QT_TRANSLATE_NOOP("Words", "ZIP"),
                                             QT_TRANSLATE_NOOP("Words", "Country or Region"),
                                             QT_TRANSLATE_NOOP("Words", "Adjacent area"),
                                             QT_TRANSLATE_NOOP("Words", "County"),
                                             QT_TRANSLATE_NOOP("Words", "Island"),
                                             QT_TRANSLATE_NOOP("Words", "Postal districts"),
                                             QT_TRANSLATE_NOOP("Words", "Jurisdiction"),
                                             QT_TRANSLATE_NOOP("Words", "Town/City"),
                                             QT_TRANSLATE_NOOP("Words", "Postcode"),
                                             QT_TRANSLATE_NOOP("Words", "Suburb"),
                                             QT_TRANSLATE_NOOP("Words", "Country/City"),
                                             QT_TRANSLATE_NOOP("Words", "Prefecture"),
                                             QT_TRANSLATE_NOOP("Words", "Further Divisions")};

}  // namespace

QString translated(const QString& word) {
  return QCoreApplication::translate("Words", word.toUtf8().constData());
}

QStringList labelsFor(const QString& propertyName) {
  const auto list = [](std::initializer_list<const char*> words) {
    QStringList texts;
    for (const char* const word : words) texts.append(QString::fromLatin1(word));
    return texts;
  };
  if (propertyName == QLatin1String("Phone")) {
    return list({"Mobile", "Home", "Work", "Home fax", "Work fax", "Pager", "Other"});
  }
  if (propertyName == QLatin1String("Date")) return list({"Anniversary", "Other"});
  if (propertyName == QLatin1String("URL")) return list({"Home page", "Home", "Work", "Other"});
  if (propertyName == QLatin1String("RelatedNames")) {
    return list({"Spouse", "Child", "Parent", "Friend", "Assistant", "Other"});
  }
  return list({"Home", "Work", "Other"});
}

}  // namespace ovcontacts
