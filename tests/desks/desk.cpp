#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "data/errors.h"
#include "data/open_store.h"

namespace veyra {
namespace {

constexpr int kFacilities = 3;
constexpr int kDays = 5;
constexpr int kSlots = 48;

/// Where a desk may book.
struct Place {
  std::int64_t Facility = 0;
  Date Day{};
};

struct Slots {
  int From = 0;
  int To = 0;  ///< Included.
};

/// Books, renames and deletes at random, and says on standard output what it is about to do, and
/// what it was told became of it. A booking is known by the first word of its name.
class Desk {
 public:
  Desk(const std::string& file, std::string name, unsigned seed)
      : store_(OpenStore(file, StoreAccess::ReadWrite, WaitPolicy(std::chrono::seconds(30)))),
        name_(std::move(name)),
        random_(seed) {}

  /// One action, in the same few rooms and days as all desks.
  void Act() {
    const Place place = AnyPlace();
    const std::vector<Row> rows = Look(place);
    const int die = Below(10);
    if (die < 6 || rows.empty()) {
      Book(place, FreeSlots(rows));
    } else if (die < 8) {
      Rename(rows.at(static_cast<std::size_t>(Below(static_cast<int>(rows.size())))));
    } else {
      Delete(rows.at(static_cast<std::size_t>(Below(static_cast<int>(rows.size())))));
    }
  }

  /// Books the next half hour of a facility that is this desk's own.
  void BookApart(int number) {
    const int slot = 1 + booked_ % kSlots;
    Book({.Facility = 1 + number, .Day = AddDays(MakeDate(2060, 1, 1).value(), booked_ / kSlots)},
         Slots{.From = slot, .To = slot});
  }

 private:
  int Below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }

  Place AnyPlace() {
    return {.Facility = 1 + Below(kFacilities),
            .Day = AddDays(MakeDate(2026, 3, 1).value(), Below(kDays))};
  }

  std::vector<Row> Look(const Place& place) {
    std::vector<Row> rows;
    const auto source = store_->Select(
        ParseQuery("SELECT * FROM Reserv WHERE RmID = " + std::to_string(place.Facility) +
                   " AND DateOfRes = #" + DateText(place.Day) + "# ORDER BY TimeFrom"));
    for (Row row; source->Next(row);) {
      rows.push_back(row);
    }
    return rows;
  }

  /// The first one to three that are free: all desks want the same.
  std::optional<Slots> FreeSlots(const std::vector<Row>& rows) {
    std::vector<bool> is_taken(kSlots + 2, false);
    for (const Row& row : rows) {
      for (auto slot = ToInteger(row.Values.at(3)); *slot <= *ToInteger(row.Values.at(4));
           ++*slot) {
        is_taken.at(static_cast<std::size_t>(*slot)) = true;
      }
    }
    const int length = 1 + Below(3);
    for (int from = 1; from + length - 1 <= kSlots; ++from) {
      int to = from;
      while (to < from + length && !is_taken.at(static_cast<std::size_t>(to))) {
        ++to;
      }
      if (to == from + length) {
        return Slots{.From = from, .To = to - 1};
      }
    }
    return std::nullopt;
  }

  void Book(const Place& place, const std::optional<Slots>& slots) {
    if (!slots) {
      return;
    }
    const std::string booking = name_ + "-" + std::to_string(++booked_);
    Report("book " + booking, [&] {
      store_->Insert("Reserv", {{"RmID", place.Facility},
                                {"Event", booking},
                                {"DateOfRes", place.Day},
                                {"TimeFrom", std::int64_t{slots->From}},
                                {"TimeTo", std::int64_t{slots->To}},
                                {"MultKey", 0.0}});
    });
  }

  void Rename(const Row& row) {
    const std::string booking = FirstWord(row);
    const std::string name = booking + " " + name_ + "-" + std::to_string(++renamed_);
    Report("rename " + name, [&] { store_->Update("Reserv", row, {{"Event", name}}); });
  }

  void Delete(const Row& row) {
    Report("delete " + FirstWord(row), [&] { store_->Delete("Reserv", row); });
  }

  static std::string FirstWord(const Row& row) {
    const std::string name = ToText(row.Values.at(1));
    return name.substr(0, name.find(' '));
  }

  template <typename Work>
  static void Report(const std::string& what, const Work& work) {
    std::cout << "tries " << what << std::endl;
    try {
      work();
      std::cout << "done " << what << std::endl;
    } catch (const TimeTakenError&) {
      std::cout << "taken " << what << std::endl;
    } catch (const RowChangedError&) {
      std::cout << "changed " << what << std::endl;
    } catch (const OutcomeUnknownError&) {
      std::cout << "unknown " << what << std::endl;
    } catch (const DatabaseError&) {
      std::cout << "failed " << what << std::endl;
      throw;
    }
  }

  std::unique_ptr<Store> store_;
  std::string name_;
  std::mt19937 random_;
  int booked_ = 0;
  int renamed_ = 0;
};

/// A desk that cannot reach the server twice running waits for a line on standard input. Returns
/// whether it may go on.
template <typename Work>
bool CarryOn(int& failures, const Work& work) {
  try {
    work();
    failures = 0;
    return true;
  } catch (const DatabaseError& error) {
    if (++failures < 2) {
      return true;
    }
    std::cout << "away " << error.report().Cause << std::endl;
    std::string line;
    return static_cast<bool>(std::getline(std::cin, line));
  }
}

int Run(const std::vector<std::string>& arguments) {
  const std::string& name = arguments.at(1);
  const int number = std::stoi(arguments.at(2));
  const int actions = std::stoi(arguments.at(3));
  const bool apart = arguments.size() > 4 && arguments.at(4) == "apart";
  Desk desk(arguments.at(0), name, static_cast<unsigned>(number));
  std::cout << "ready" << std::endl;
  if (std::string line; !std::getline(std::cin, line)) {
    return EXIT_FAILURE;
  }
  int failures = 0;
  for (int action = 0; action < actions; ++action) {
    const bool goes_on = CarryOn(failures, [&] { apart ? desk.BookApart(number) : desk.Act(); });
    if (!goes_on) {
      return EXIT_FAILURE;
    }
  }
  std::cout << "ended" << std::endl;
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace veyra

/// desk FILE NAME NUMBER ACTIONS [apart]: acts so often on the calendar FILE once a line came on
/// standard input. With "apart" it only books, in a facility where no other desk does.
int main(int count, char** arguments) {
  return veyra::Run({arguments + 1, arguments + count});
}
