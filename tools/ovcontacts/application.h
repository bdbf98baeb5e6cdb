#pragma once

class QApplication;
class QLocale;
class QString;

namespace ovcontacts {

/// Makes the application the contacts program: its name, its language and direction of writing, and
/// where its preferences are.
void setUp(QApplication& application);

/// Windows speak this language from now on, as far as there is a translation.
void speak(QApplication& application, const QLocale& locale);

}  // namespace ovcontacts
