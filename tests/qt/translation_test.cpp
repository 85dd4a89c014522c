#include "app/translation.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <memory>

#include "data/errors.h"
#include "data/store_errors.h"
#include "forms/handler_guard.h"
#include "forms/print/day_sheets.h"
#include "forms/print/qt_sheet_text.h"
#include "forms/widgets/qt_dialogs.h"
#include "forms/widgets/qt_text.h"
#include "logic/multiday.h"
#include "logic/slots.h"
#include "tests/calendar_folder.h"
#include "tests/temp_folder.h"

namespace veyra {
namespace {

std::string Shown(const Phrase& phrase) {
  return ToUtf8(ToQString(phrase));
}

class TranslationTest : public testing::Test {
 protected:
  void Speak(const QStringList& languages) { translation_ = InstallTranslation(languages); }

  /// The text of the box, which is answered with its first button.
  static QString TextOfBox(const Message& message) {
    QString text;
    QTimer::singleShot(0, [&text] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(nullptr, box);
      text = box->text();
      box->accept();
    });
    QtDialogs().MsgBox(message);
    return text;
  }

  std::unique_ptr<QTranslator> translation_;
};

TEST_F(TranslationTest, AReportIsShownInGerman) {
  Speak({QStringLiteral("de-DE")});
  EXPECT_EQ(QStringLiteral("/srv/Calendar.mdb\n"
                           "Ein anderes Programm hat gerade diese Zeile der Tabelle Reserv "
                           "geändert.\n"
                           "Es wurde nichts überschrieben.\n"
                           "Sehen Sie sich die Buchungen an, wie sie jetzt sind, und machen Sie es "
                           "noch einmal, wenn es noch nötig ist."),
            TextOfBox(StandardReport(RowChanged("/srv/Calendar.mdb", "Reserv"))));
}

TEST_F(TranslationTest, WhatIsWrittenToLogsStaysEnglish) {
  Speak({QStringLiteral("de")});
  EXPECT_STREQ("/srv/a.mdb\nThe file has a table Rooms already.",
               TableExists("/srv/a.mdb", "Rooms").what());
}

TEST_F(TranslationTest, WeekdaysAreAbbreviatedAsGermansDo) {
  Speak({QStringLiteral("de")});
  std::string names;
  for (int weekday = 1; weekday <= 7; ++weekday) {
    names += Shown(modRes::WeekdayAbbreviation(weekday)) + " ";
  }
  EXPECT_EQ("So Mo Di Mi Do Fr Sa ", names);
}

TEST_F(TranslationTest, AnotherCountrysGermanIsGerman) {
  Speak({QStringLiteral("de-AT")});
  EXPECT_EQ("frei", Shown(Phrase::Tr("free")));
}

TEST_F(TranslationTest, TheFirstLanguageThatIsKnownIsTaken) {
  Speak({QStringLiteral("xx-YY"), QStringLiteral("de"), QStringLiteral("en")});
  EXPECT_EQ("frei", Shown(Phrase::Tr("free")));
}

TEST_F(TranslationTest, WhoLikesEnglishBetterGetsIt) {
  Speak({QStringLiteral("en-GB"), QStringLiteral("de")});
  EXPECT_EQ(nullptr, translation_);
  EXPECT_EQ("free", Shown(Phrase::Tr("free")));
}

TEST_F(TranslationTest, ALanguageThatIsNotKnownGetsEnglish) {
  Speak({QStringLiteral("xx-YY"), QStringLiteral("C")});
  EXPECT_EQ(nullptr, translation_);
  EXPECT_EQ("free", Shown(Phrase::Tr("free")));
}

TEST_F(TranslationTest, ATextThatIsNotMarkedStaysAsItIs) {
  Speak({QStringLiteral("de")});
  EXPECT_EQ("3 Booking(s) Made.", Shown("3 Booking(s) Made."));
  EXPECT_EQ("free", Shown("free")) << "though it reads like one that is";
}

TEST_F(TranslationTest, NamesStayAsTheyAre) {
  Speak({QStringLiteral("de")});
  EXPECT_EQ("Die Anlage %1 Żółć 山田 gibt es nicht mehr.",
            Shown(Phrase::Tr("The facility %1 is not there any more.", "%1 Żółć 山田")));
}

TEST_F(TranslationTest, GermanMayPutThePlacesInAnotherOrder) {
  Speak({QStringLiteral("de")});
  EXPECT_EQ("Heißt wieder Ann: Pool.", Shown(Phrase::Tr("%1 is called %2 again.", "Pool", "Ann")));
}

TEST_F(TranslationTest, LengthsAreGerman) {
  Speak({QStringLiteral("de")});
  EXPECT_EQ("30 Min.", Shown(modRes::LengthText(1)));
  EXPECT_EQ("2 Std.", Shown(modRes::LengthText(4)));
  EXPECT_EQ("1 Std. 30 Min.", Shown(modRes::LengthText(3)));
}

TEST_F(TranslationTest, TheSheetsForTheDoorNameDatesAsGermansDo) {
  Speak({QStringLiteral("de")});
  CalendarFolder folder;
  const auto session = folder.OpenSession();
  session->CurrentColors = {"1", "2", "3", "4", "5"};
  const Date day = MakeDate(2014, 3, 5).value();
  EXPECT_EQ("Mittwoch, 5. März 2014", Shown(DaySheet(*session, day, day).Title));
  EXPECT_EQ("Mittwoch, 5. März", Shown(DateWords(day)));
  const Sheet week = WeekSheet(*session, day, day);
  EXPECT_EQ("2. bis 8. März 2014", Shown(week.Title));
  EXPECT_EQ("Mittwoch, 5.", Shown(week.Days.at(3).Number));
  EXPECT_EQ("30. März bis 5. April 2014",
            Shown(WeekSheet(*session, MakeDate(2014, 4, 1).value(), day).Title));
  EXPECT_EQ("28. Dezember 2014 bis 3. Januar 2015",
            Shown(WeekSheet(*session, MakeDate(2015, 1, 1).value(), day).Title));
}

TEST_F(TranslationTest, WhatIsPrintedIsTranslated) {
  Speak({QStringLiteral("de")});
  EXPECT_EQ("März", QtSheetText().TextOf(Phrase::Tr("March")));
  EXPECT_EQ("March", QtSheetText().TextOf("March"));
}

/// A program folder with the help in both languages.
class HelpFileChoice : public TranslationTest {
 protected:
  HelpFileChoice() {
    folder_.Write("VeyraCalendar.chm", "");
    folder_.Write("VeyraCalendar_de.chm", "");
  }

  std::string Chosen() const { return HelpFileIn(folder_.path()).filename().string(); }

  TempFolder folder_;
};

TEST_F(HelpFileChoice, AGermanDesktopGetsTheGermanHelp) {
  Speak({QStringLiteral("de-AT")});
  EXPECT_EQ("VeyraCalendar_de.chm", Chosen());
  EXPECT_EQ(folder_.File("VeyraCalendar_de.chm"), HelpFileIn(folder_.path()));
}

TEST_F(HelpFileChoice, AnyOtherDesktopGetsTheEnglishHelp) {
  Speak({QStringLiteral("en-GB"), QStringLiteral("de")});
  EXPECT_EQ("VeyraCalendar.chm", Chosen());
  Speak({QStringLiteral("xx")});
  EXPECT_EQ("VeyraCalendar.chm", Chosen());
}

TEST_F(HelpFileChoice, WithoutAGermanHelpTheEnglishOneIsShown) {
  Speak({QStringLiteral("de")});
  std::filesystem::remove(folder_.File("VeyraCalendar_de.chm"));
  EXPECT_EQ("VeyraCalendar.chm", Chosen());
}

TEST_F(HelpFileChoice, WithoutAnyHelpTheEnglishOneIsMissed) {
  Speak({QStringLiteral("de")});
  std::filesystem::remove(folder_.File("VeyraCalendar_de.chm"));
  std::filesystem::remove(folder_.File("VeyraCalendar.chm"));
  EXPECT_EQ("VeyraCalendar.chm", Chosen());
}

}  // namespace
}  // namespace veyra
