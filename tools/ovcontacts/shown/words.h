#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace ovcontacts {

/// The library's English words for properties, labels and fields of addresses, in the language of
/// the windows; unknown words as they are.
[[nodiscard]] QString translated(const QString& word);

/// The labels that are offered for a property, in English.
[[nodiscard]] QStringList labelsFor(const QString& propertyName);

}  // namespace ovcontacts
