#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtWidgets/QMenuBar>

#include "application.h"
#include "used_window.h"

namespace {

class Language : public UsedWindow {
 protected:
  ~Language() override { speak("en_GB"); }
  static void speak(const char* name) {
    ovcontacts::speak(*static_cast<QApplication*>(QCoreApplication::instance()),
                      QLocale(QString::fromLatin1(name)));
  }
};

}  // namespace

TEST_F(Language, IsGermanForGermans) {
  speak("de_DE");
  const ovcontacts::MainWindow german;
  QStringList menus;
  for (const QAction* const menu : german.menuBar()->actions()) menus += menu->text();
  EXPECT_EQ(menus, (QStringList{"&Datei", "&Bearbeiten", "&Kontakt", "&Gruppe", "&Ansicht"}));
}

TEST_F(Language, CountsAsPeopleDo) {
  speak("en_GB");
  EXPECT_EQ(QCoreApplication::translate("ovcontacts::PersonsPane", "%n contact(s)", nullptr, 1),
            "1 contact");
  EXPECT_EQ(QCoreApplication::translate("ovcontacts::PersonsPane", "%n contact(s)", nullptr, 2),
            "2 contacts");
}

TEST_F(Language, IsWholeEnglishWhereThereIsNoTranslation) {
  speak("ar_EG");
  EXPECT_EQ(QCoreApplication::translate("ovcontacts::PersonsPane", "%n contact(s)", nullptr, 2),
            "2 contacts");
}

TEST_F(Language, RunsFromRightToLeftWhereItDoes) {
  speak("ar_EG");
  EXPECT_EQ(QApplication::layoutDirection(), Qt::RightToLeft);
  speak("en_GB");
  EXPECT_EQ(QApplication::layoutDirection(), Qt::LeftToRight);
}

/// What lupdate finds in the sources is in the translations, and all of it is translated.
TEST_F(Language, EveryTextIsTranslated) {
  const QString source = QStringLiteral(OV_SOURCE_DIR "/tools/ovcontacts");
  for (const char* const language : {"de", "en"}) {
    const auto name = QStringLiteral("ovcontacts_%1.ts").arg(QLatin1String(language));
    const QString copy = QString::fromStdString(folder_.at(name.toStdString()));
    ASSERT_TRUE(QFile::copy(source + "/translations/" + name, copy));
    QStringList arguments{"-silent",    "-no-obsolete",
                          "-locations", "none",
                          source,       QStringLiteral(OV_SOURCE_DIR "/hosts/qt"),
                          "-ts",        copy};
    if (QLatin1String(language) == QLatin1String("en")) arguments.prepend("-pluralonly");
    ASSERT_EQ(QProcess::execute(QStringLiteral(OV_LUPDATE), arguments), 0);
    const std::string now = content(copy.toStdString());
    EXPECT_EQ(now.find("unfinished"), std::string::npos) << language;
    EXPECT_EQ(now, content((source + "/translations/" + name).toStdString()))
        << "lupdate writes something else";
  }
}
