#include "data/journal.h"
#include "tests/tools/companion/kept_calendar.h"

namespace veyra {
namespace {

constexpr const char* kGerman = "LANG=de_DE.UTF-8";

/// What the built companion says where the environment asks for German.
class GermanCompanionTest : public KeptCalendarTest {
 protected:
  static Ended InGerman(const Arguments& arguments, const std::string& input = {}) {
    return RunProgramIn(kGerman, arguments, input);
  }

  static bool Says(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
  }

  void BookTurned() const { Book(pool_, "2026-03-02", 12, 10, "Turned"); }

  Ended Mend(const std::string& variables, const std::string& answer) const {
    return RunProgramIn(variables, {"check", "--mend", Folder()}, answer + "\n");
  }

  /// A booking, made as an action of that name.
  void Act(const std::string& name) const {
    const auto desk = Desk();
    const JournalledAction action(*desk, name);
    desk->Insert("Reserv", {{"RmID", pool_}, {"Event", name}});
  }

  /// What an import of a file with these bytes reports, without the name of the file.
  std::string ImportOf(const std::string& name, const std::string& bytes) const {
    temp_.Write(name, bytes);
    const Ended ended = InGerman({"import", File(name), Folder()});
    EXPECT_EQ(2, ended.Status) << ended.Out;
    return ended.Err.substr(ended.Err.find('\n') + 1);
  }
  std::string ImportOfEvent(const std::string& lines) const {
    return ImportOf("in.ics",
                    "BEGIN:VCALENDAR\nVERSION:2.0\nPRODID:test\nBEGIN:VEVENT\nUID:one\n"
                    "SUMMARY:Yoga\n" +
                        lines + "END:VEVENT\nEND:VCALENDAR\n");
  }

  /// The same for programs, whatever the language.
  static void ExpectSame(const Arguments& arguments) {
    const Ended english = RunProgram(arguments);
    const Ended german = InGerman(arguments);
    EXPECT_EQ(english.Out, german.Out) << arguments.front();
    EXPECT_EQ(english.Status, german.Status) << arguments.front();
    EXPECT_NE("", english.Out) << arguments.front();
  }
};

VEYRA_FOR_ALL_KINDS(GermanCompanionTest);

TEST_P(GermanCompanionTest, CheckSaysWhatIsWrong) {
  Book(pool_, "2026-03-02", 1, 20, "Long");
  Book(pool_, "2026-03-02", 3, 4, "Inside");
  Book(77, "2026-03-02", 1, 2, "Gone");
  const Ended ended = InGerman({"check", Folder()});
  EXPECT_EQ(1, ended.Status);
  EXPECT_EQ(
      "no-facility: Von einer Anlage, die es nicht gibt: keine Anlage (77), 3/2/2026, "
      "12:00A- 1:00A Gone. Kein Fenster zeigt sie. Exportieren Sie sie, und importieren Sie sie "
      "dann mit --facility, oder spielen Sie eine Sicherungskopie zurück.\n"
      "overlap: Pool, 3/2/2026, 12:00A-10:00A Long überschneidet sich mit  1:00A- 2:00A Inside. "
      "Löschen Sie eine der beiden, oder buchen Sie sie zu einer anderen Zeit.\n",
      ended.Out);
}

TEST_P(GermanCompanionTest, AFailureIsReported) {
  const Ended ended = InGerman({"list", Folder(), "--free", "ages"});
  EXPECT_EQ(2, ended.Status);
  EXPECT_EQ(
      "veyra-data: „ages“ ist keine Dauer innerhalb eines Tages.\n"
      "Schreiben Sie sie als 2h, 90m oder 1h30.\n",
      ended.Err);
}

TEST_P(GermanCompanionTest, AFailureOfTheFileIsReported) {
  const Ended ended = InGerman({"new", Folder()});
  EXPECT_EQ(2, ended.Status);
  EXPECT_EQ("veyra-data: " + CalendarName() +
                "\nDiese Datei gibt es schon; es wurde nichts angelegt.\n"
                "Wählen Sie einen anderen Ordner, oder räumen Sie die Datei zuerst weg.\n",
            ended.Err);
}

TEST_P(GermanCompanionTest, ARefusedQuestionChangesNothing) {
  BookTurned();
  const std::string before = Rows("Reserv");
  const Ended ended = Mend(kGerman, "n");
  EXPECT_EQ(1, ended.Status);
  EXPECT_EQ("1 von diesen 1 beheben und eine Kopie aufheben? [j/N] Es wurde nichts geändert.\n",
            ended.Err);
  EXPECT_EQ(before, Rows("Reserv"));
}

TEST_P(GermanCompanionTest, AQuestionIsAnsweredInEitherLanguage) {
  for (const std::string answer : {"j", "J", "ja", "Ja", "y", "Yes"}) {
    BookTurned();
    const Ended ended = Mend(kGerman, answer);
    EXPECT_EQ(0, ended.Status) << answer;
    EXPECT_TRUE(Says(ended.Err, "Die beiden Enden wurden in Ordnung gebracht.\n")) << answer;
    const auto desk = Desk();
    const auto rows = desk->Select(ParseQuery("SELECT * FROM Reserv"));
    Row row;
    ASSERT_TRUE(rows->Next(row));
    desk->Delete("Reserv", row);
  }
}

TEST_P(GermanCompanionTest, AnEnglishQuestionTakesNoGermanAnswer) {
  BookTurned();
  const Ended ended = Mend("LC_ALL=C", "ja");
  EXPECT_EQ(1, ended.Status);
  EXPECT_EQ("Mend 1 of these 1, and keep a copy? [y/N] Nothing was changed.\n", ended.Err);
}

TEST_P(GermanCompanionTest, TheHelpOfACommandIsGerman) {
  const std::string help = InGerman({"backup", "--help"}).Out;
  EXPECT_TRUE(Says(help, "\nAufruf: veyra-data backup [OPTIONEN] [FILE] [FOLDER]\n")) << help;
  EXPECT_TRUE(Says(help, "\nAngaben:\n")) << help;
  EXPECT_TRUE(Says(help, "die Kopie, die angelegt wird; entfällt mit --rolling\n")) << help;
  EXPECT_TRUE(Says(help, "\nOptionen:\n")) << help;
  EXPECT_TRUE(Says(help, "Gibt diese Hilfe aus und endet\n")) << help;
  EXPECT_TRUE(Says(help, "\nBeispiel: veyra-data backup --rolling ~/our-calendar\n")) << help;
}

TEST_P(GermanCompanionTest, TheHelpOfTheWholeNamesTheCommands) {
  const std::string help = InGerman({"--help"}).Out;
  EXPECT_TRUE(Says(help, "\nBefehle:\n  new ")) << help;
  EXPECT_TRUE(Says(help, "Legt eine geprüfte Kopie des Kalenders an")) << help;
  EXPECT_TRUE(Says(help, "\nStatus am Ende: 0 gut,")) << help;
}

TEST_P(GermanCompanionTest, WhatIsNotUnderstoodIsSaid) {
  EXPECT_EQ(
      "veyra-data: Das folgende Argument wurde nicht erwartet: --loud\n"
      "Versuchen Sie „veyra-data --help“.\n",
      InGerman({"show", CalendarName(), "--loud"}).Err);
  EXPECT_EQ(
      "veyra-data: FILE ist nötig\n"
      "Versuchen Sie „veyra-data --help“.\n",
      InGerman({"show"}).Err);
}

TEST_P(GermanCompanionTest, WhatAnOptionWasGivenIsSaid) {
  const auto said = [](const Arguments& arguments) {
    const std::string text = InGerman(arguments).Err;
    return text.substr(0, text.find('\n'));
  };
  EXPECT_EQ("veyra-data: --last kann nur 1-mal angegeben werden, nicht 2-mal",
            said({"history", "--last", "1", "--last", "2"}));
  EXPECT_EQ("veyra-data: --last: 1 Angabe fehlt (NUMBER)", said({"history", "--last"}));
  EXPECT_EQ("veyra-data: --to: dbase ist keines von {access->1,sqlite->0} oder {1,0}",
            said({"convert", "--to", "dbase"}));
  EXPECT_EQ("veyra-data: WHAT: perhaps ist keines von {on,off,status}",
            said({"journal", "perhaps"}));
}

TEST_P(GermanCompanionTest, ADamagedFileIsToldOf) {
  if (GetParam() != StoreKind::Access) {
    GTEST_SKIP() << "SQLite says what is wrong in its own words";
  }
  RenumberMainHallPastTheIndex();
  EXPECT_EQ(
      "damaged: Die Datei ist beschädigt: Der Index PrimaryKey der Tabelle Rooms stimmt nicht: "
      "Zeilen, die in ihm fehlen: 1, Einträge, zu denen keine Zeile gehört: 1. Spielen Sie mit "
      "„veyra-data restore-backup“ eine Sicherungskopie zurück.\n",
      InGerman({"check", Folder()}).Out);
}

TEST_P(GermanCompanionTest, AFileThatCannotBeImportedIsToldOf) {
  const std::string save_again =
      "Es wurde nichts geändert. Speichern Sie die Datei als CSV, in UTF-8, und versuchen Sie es "
      "noch einmal.\n";
  EXPECT_EQ(
      "Zeile 2: Hinter dem Ende einer Zelle in Anführungszeichen steht noch etwas.\n" + save_again,
      ImportOf("in.csv", "Date,From,To,Name\n\"a\"b\n"));
  EXPECT_EQ("Zeile 2: Eine Zelle in Anführungszeichen hat kein Ende.\n" + save_again,
            ImportOf("in.csv", "Date,From,To,Name\n\"a\n"));
  EXPECT_EQ("Die Datei ist kein Text in UTF-8.\n" + save_again, ImportOf("in.csv", "Caf\xE9\n"));
}

TEST_P(GermanCompanionTest, AnEventThatCannotBeImportedIsToldOf) {
  const std::string correct =
      "\nEs wurde nichts geändert. Berichtigen Sie die Datei, oder lassen Sie das Ereignis aus.\n";
  const std::string start = "DTSTART:20260302T090000\n";
  EXPECT_EQ("Das Ereignis „Yoga“ hat kein lesbares Datum." + correct, ImportOfEvent(""));
  EXPECT_EQ(
      "Das Ereignis „Yoga“ endet, bevor es beginnt, oder zu einer Zeit, die nicht lesbar ist." +
          correct,
      ImportOfEvent(start + "DTEND:20260301T090000\n"));
  EXPECT_EQ("Das Ereignis „Yoga“ dauert länger als ein Jahr." + correct,
            ImportOfEvent(start + "DTEND:20280301T090000\n"));
  EXPECT_EQ(
      "Das Ereignis „Yoga“ wiederholt sich ohne Ende. Nennen Sie mit --to den letzten Tag, den Sie "
      "wollen." +
          correct,
      ImportOfEvent(start + "RRULE:FREQ=DAILY\n"));
  EXPECT_EQ("Das Ereignis „Yoga“ wiederholt sich öfter, als es irgendeine Buchung tut." + correct,
            ImportOfEvent(start + "RRULE:FREQ=SECONDLY;UNTIL=20300101T000000\n"));
}

TEST_P(GermanCompanionTest, ActionsAreNamedInGermanAndKeptInEnglish) {
  for (const std::string name :
       {"New series", "Spring cleaning", "Undo of 7", "Undo of it all", "Import of in.csv"}) {
    Act(name);
  }
  const std::string history = InGerman({"history", Folder()}).Out;
  for (const std::string name : {"Neue Serie", "Spring cleaning", "Rücknahme von 7",
                                 "Undo of it all", "Import aus in.csv"}) {
    EXPECT_TRUE(Says(history, "  " + name + ": 1 Zeile\n")) << name << "\n" << history;
  }
  EXPECT_TRUE(Says(InGerman({"undo", Folder()}, "n\n").Out, "  Import aus in.csv: 1 Zeile\n"));
  EXPECT_TRUE(Says(InGerman({"history", Folder(), "--json"}).Out, "\"action\": \"New series\""));
  ExpectSame({"history", Folder(), "--json"});
}

TEST_P(GermanCompanionTest, WhatProgramsReadStaysAsItIs) {
  Book(pool_, "2026-03-02", 1, 20, "Long");
  Book(pool_, "2026-03-02", 3, 4, "Inside");
  Book(77, "2026-03-02", 1, 2, "Gone");
  const TempFolder other;
  other.Write("in.csv", "Facility,Date,From,To,Name\nPool,3/2/2026,1:00,2:10,Smith\n");
  ExpectSame({"list", Folder(), "--on", "3/2/2026"});
  ExpectSame({"list", Folder(), "--on", "3/2/2026", "--json"});
  ExpectSame({"check", Folder(), "--json"});
  ExpectSame({"history", Folder(), "--json"});
  ExpectSame({"show", CalendarName()});
  ExpectSame({"export", "-", Folder(), "--format", "csv"});
  ExpectSame({"import", other.File("in.csv").string(), Folder(), "--dry-run", "--json"});
  ExpectSame({"share", "--sql"});
  ExpectSame({"--version"});
}

TEST_P(GermanCompanionTest, LcAllGoesBeforeLang) {
  const std::string english = CalendarName() + ": nothing is wrong.\n";
  EXPECT_EQ(english, RunProgramIn("LC_ALL=C LANG=de_DE.UTF-8", {"check", Folder()}).Out);
  EXPECT_EQ(CalendarName() + ": Alles ist in Ordnung.\n", InGerman({"check", Folder()}).Out);
}

TEST_P(GermanCompanionTest, AnUnknownLanguageIsEnglish) {
  const std::string english = CalendarName() + ": nothing is wrong.\n";
  EXPECT_EQ(english, RunProgramIn("LANG=tlh_KX.UTF-8", {"check", Folder()}).Out);
  EXPECT_EQ(english, RunProgramIn("LANG=", {"check", Folder()}).Out);
}

}  // namespace
}  // namespace veyra
