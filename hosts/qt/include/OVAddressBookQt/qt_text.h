#pragma once

#include <QtCore/QString>

#include <OVAddressBookSDK/text.h>

namespace ov::qt {

/// The text as Qt's; null for null.
[[nodiscard]] inline QString qString(const OVString& text) {
  return text.isNull() ? QString()
                       : QString::fromUtf8(text.view().data(), static_cast<qsizetype>(text.size()));
}

/// The text as the library's; null for null.
[[nodiscard]] inline OVString ovString(const QString& text) {
  return text.isNull() ? OVString() : OVString(text.toUtf8().toStdString());
}

}  // namespace ov::qt
