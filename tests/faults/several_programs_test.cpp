#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <random>
#include <set>

#include "data/connection.h"
#include "data/errors.h"
#include "data/open_store.h"
#include "tests/faults/contents.h"
#include "tests/faults/office.h"
#include "tests/temp_folder.h"

namespace veyra::faults {
namespace {

/// What a program tells of one of its bookings, when the store has returned.
struct Told {
  enum class What : std::int32_t { Booked, Renamed, Deleted };
  What Happened = What::Booked;
  std::int32_t Program = 0;
  std::int32_t Number = 0;
};

std::string NameOfBooking(int program, int number, bool renamed) {
  return "Program " + std::to_string(program) + " booking " + std::to_string(number) +
         (renamed ? " renamed" : "");
}

/// A program that books, renames and deletes among its own bookings, in the table that all share.
class Program {
 public:
  Program(const std::string& calendar, int number, unsigned seed, int pipe)
      : number_(number),
        pipe_(pipe),
        random_(seed),
        connection_(
            OpenStore(calendar, StoreAccess::ReadWrite, WaitPolicy(std::chrono::minutes(1)))) {}

  void Work(int actions) {
    for (int i = 0; i < actions; ++i) {
      const unsigned lot = random_() % 4;
      if (lot < 2 || open_.empty()) {
        Book(i);
      } else if (lot == 2) {
        Rename();
      } else {
        Delete();
      }
    }
  }

 private:
  void Tell(Told::What happened, int booking) {
    const Told told{happened, number_, booking};
    if (write(pipe_, &told, sizeof told) != sizeof told) {
      _exit(3);
    }
  }

  void Book(int booking) {
    const auto rows = connection_.Open("SELECT * FROM Reserv", CursorType::StaticOptimistic);
    rows->AddNew();
    rows->SetField("RmID", std::int64_t{number_});
    rows->SetField("Event", NameOfBooking(number_, booking, false));
    rows->SetField("DateOfRes", AddDays(MakeDate(2014, 1, 1).value(), booking));
    rows->SetField("TimeFrom", std::int64_t{1});
    rows->SetField("TimeTo", std::int64_t{2});
    rows->Update();
    Tell(Told::What::Booked, booking);
    open_.push_back(booking);
  }

  std::unique_ptr<Recordset> Pick(int booking) {
    return connection_.Open("SELECT * FROM Reserv Where RmID = " + std::to_string(number_) +
                                " And DateOfRes = #" +
                                DateText(AddDays(MakeDate(2014, 1, 1).value(), booking)) + "#",
                            CursorType::StaticOptimistic);
  }

  void Rename() {
    const int booking = open_[random_() % open_.size()];
    const auto rows = Pick(booking);
    rows->SetField("Event", NameOfBooking(number_, booking, true));
    rows->Update();
    Tell(Told::What::Renamed, booking);
  }

  void Delete() {
    const std::size_t place = random_() % open_.size();
    const int booking = open_[place];
    Pick(booking)->Delete();
    Tell(Told::What::Deleted, booking);
    open_.erase(open_.begin() + static_cast<std::ptrdiff_t>(place));
  }

  int number_;
  int pipe_;
  std::mt19937 random_;
  Connection connection_;
  std::vector<int> open_;
};

/// Several programs on one calendar, one of which is killed on the way.
class SeveralProgramsTest : public testing::TestWithParam<std::tuple<StoreKind, int>> {
 protected:
  SeveralProgramsTest() {
    const Action nothing{"Nothing", [](Office&) {}, [](Office&) {}};
    ReadyFolder(std::get<0>(GetParam()), nothing).CopyTo(folder_.path().string());
  }

  std::string Calendar() const { return folder_.File("Calendar.mdb").string(); }

  pid_t Start(int number, unsigned seed, int actions, const int (&ends)[2]) const {
    const pid_t child = fork();
    if (child != 0) {
      return child;
    }
    close(ends[0]);
    try {
      Program(Calendar(), number, seed, ends[1]).Work(actions);
      _exit(0);
    } catch (const std::exception& failure) {
      const std::string text = std::string(failure.what()) + "\n";
      [[maybe_unused]] const ssize_t shown = write(STDERR_FILENO, text.data(), text.size());
      _exit(1);
    }
  }

  /// Runs the programs and kills the last one after it has told of so many changes.
  void Run(int programs, unsigned seed, int actions, int kill_after) {
    int ends[2];
    ASSERT_EQ(0, pipe(ends));
    std::vector<pid_t> children;
    for (int number = 1; number <= programs; ++number) {
      children.push_back(Start(number, seed * 100 + static_cast<unsigned>(number), actions, ends));
    }
    close(ends[1]);
    for (Told told; read(ends[0], &told, sizeof told) == sizeof told;) {
      Take(told);
      if (told.Program == programs && --kill_after == 0) {
        kill(children.back(), SIGKILL);
      }
    }
    close(ends[0]);
    for (const pid_t child : children) {
      int status = 0;
      waitpid(child, &status, 0);
      const bool ended_well = WIFEXITED(status) && WEXITSTATUS(status) == 0;
      EXPECT_TRUE(ended_well || child == children.back());
    }
  }

  void Take(const Told& told) {
    const std::pair<int, int> booking{told.Program, told.Number};
    switch (told.Happened) {
      case Told::What::Booked:
        expected_[booking] = NameOfBooking(told.Program, told.Number, false);
        break;
      case Told::What::Renamed:
        expected_[booking] = NameOfBooking(told.Program, told.Number, true);
        break;
      case Told::What::Deleted:
        expected_.erase(booking);
        break;
    }
  }

  std::multiset<std::string> ExpectedOf(int program) const {
    std::multiset<std::string> names;
    for (const auto& [booking, name] : expected_) {
      if (booking.first == program) {
        names.insert(name);
      }
    }
    return names;
  }

  std::multiset<std::string> FoundOf(int program) const {
    Connection connection(OpenStore(Calendar(), StoreAccess::ReadWrite));
    const auto rows = connection.Open("SELECT * FROM Reserv", CursorType::ForwardOnlyReadOnly);
    std::multiset<std::string> names;
    for (; !rows->AtEnd(); rows->MoveNext()) {
      const std::string name = ToText(rows->Field("Event"));
      if (name.starts_with("Program " + std::to_string(program) + " ")) {
        names.insert(name);
      }
    }
    return names;
  }

  /// For the next round.
  void Clear() {
    Connection connection(OpenStore(Calendar(), StoreAccess::ReadWrite));
    const auto rows = connection.Open("SELECT * FROM Reserv", CursorType::StaticOptimistic);
    for (; !rows->AtEnd(); rows->MoveNext()) {
      rows->Delete();
    }
    expected_.clear();
  }

  const TempFolder folder_;
  std::map<std::pair<int, int>, std::string> expected_;
};

/// The names in which both differ.
std::size_t Differences(const std::multiset<std::string>& one,
                        const std::multiset<std::string>& other) {
  std::vector<std::string> names;
  std::set_symmetric_difference(one.begin(), one.end(), other.begin(), other.end(),
                                std::back_inserter(names));
  return names.size();
}

TEST_P(SeveralProgramsTest, LoseNothingOfEachOtherEvenIfOneIsKilled) {
  const int programs = std::get<1>(GetParam());
  const int rounds = Tries(1, 10);
  for (int round = 1; round <= rounds; ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    const int actions = Tries(15, 60);
    Run(programs, static_cast<unsigned>(round), actions, actions / 2 + round);
    for (int program = 1; program < programs; ++program) {
      EXPECT_EQ(ExpectedOf(program), FoundOf(program));
    }
    // Of the one that was killed, the change that it was at may have been made: a renaming tells
    // itself as two names.
    EXPECT_LE(Differences(ExpectedOf(programs), FoundOf(programs)), 2U);
    EXPECT_EQ("", Damage(Calendar()));
    Clear();
  }
}

INSTANTIATE_TEST_SUITE_P(Faults, SeveralProgramsTest,
                         testing::Combine(testing::ValuesIn(kFileKinds), testing::Values(2, 5)),
                         [](const auto& one) {
                           return std::string(NameOf(std::get<0>(one.param))) + "_" +
                                  std::to_string(std::get<1>(one.param));
                         });

}  // namespace
}  // namespace veyra::faults
