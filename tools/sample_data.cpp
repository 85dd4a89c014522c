#include "tools/sample_data.h"

#include <algorithm>
#include <array>
#include <random>

namespace veyra {
namespace {

enum Facility : std::size_t { kMainHall, kStudio, kMeetingRoom, kKitchen, kGardenRoom };

enum Weekday { kSunday = 1, kMonday, kTuesday, kWednesday, kThursday, kFriday, kSaturday };

const std::vector<std::string>& FacilityNames() {
  static const std::vector<std::string> names = {"Main Hall", "Studio", "Meeting Room", "Kitchen",
                                                 "Garden Room"};
  return names;
}

const std::vector<std::string>& GuestNames() {
  static const std::vector<std::string> names = {
      "Abena Ofori",      "Agnes Whitlow",     "Aleksander Zieliński",
      "Amira Haddad",     "Åsa Lindqvist",     "Bram Vermeulen",
      "Brigid O'Shea",    "Carlos Medina",     "Chiara Lombardi",
      "Daniel Okonjo",    "Dilnoza Karimova",  "Eleanor Marsh",
      "Émile Rousselle",  "Fatima Alami",      "Guðrún Óladóttir",
      "Hamish Drummond",  "Inês Carvalho",     "İpek Yıldırım",
      "Jiří Havelka",     "Jovana Petrović",   "Kwame Boateng",
      "Liam Fairbrother", "Marguerite Dubois", "Mateo Ibáñez",
      "Noor van Dijk",    "Oskar Lehmann",     "Phạm Linh",
      "Priya Raghavan",   "Quentin Ashworth",  "Rūta Kazlauskaitė",
      "Samuel Adeyemi",   "Tamsin Pellow",     "Ursula Brandt",
      "Vilma Korhonen",   "Ying Zhao",         "Zoltán Fekete",
      "Ελένη Παππά",      "Ольга Синицына",    "נועה ברקת",
      "ليلى منصور"};
  return names;
}

/// The half hour that begins at that time of day; 24:00 is the one after the last.
constexpr int SlotAt(int hour, int minute = 0) {
  return hour * 2 + minute / 30 + 1;
}

/// A class that meets every week at the same time.
struct WeeklyClass {
  Facility Room;
  Weekday Day;
  int Begin;  ///< SlotAt its beginning.
  int End;    ///< SlotAt its end: the first half hour that is free again.
  const char* Event;
};

constexpr std::array kWeeklyClasses = {
    WeeklyClass{kMainHall, kSunday, SlotAt(10), SlotAt(11, 30), "Family Brunch"},
    WeeklyClass{kMainHall, kMonday, SlotAt(9, 30), SlotAt(11), "Morning Yoga"},
    WeeklyClass{kMainHall, kMonday, SlotAt(19), SlotAt(21), "Choir Practice"},
    WeeklyClass{kMainHall, kTuesday, SlotAt(10), SlotAt(12), "Toddler Group"},
    WeeklyClass{kMainHall, kTuesday, SlotAt(19, 30), SlotAt(21, 30), "Badminton Club"},
    WeeklyClass{kMainHall, kWednesday, SlotAt(14), SlotAt(16), "Tea Dance"},
    WeeklyClass{kMainHall, kWednesday, SlotAt(18), SlotAt(19, 30), "Karate Juniors"},
    WeeklyClass{kMainHall, kThursday, SlotAt(9, 30), SlotAt(10, 30), "Pilates"},
    WeeklyClass{kMainHall, kThursday, SlotAt(19), SlotAt(22), "Chess Club"},
    WeeklyClass{kMainHall, kFriday, SlotAt(16), SlotAt(17, 30), "Homework Club"},
    WeeklyClass{kStudio, kMonday, SlotAt(17), SlotAt(18, 30), "Ballet Beginners"},
    WeeklyClass{kStudio, kTuesday, SlotAt(18), SlotAt(20), "Life Drawing"},
    WeeklyClass{kStudio, kThursday, SlotAt(17), SlotAt(18, 30), "Ballet Improvers"},
    WeeklyClass{kStudio, kFriday, SlotAt(19), SlotAt(21), "Salsa"},
    WeeklyClass{kMeetingRoom, kTuesday, SlotAt(12, 30), SlotAt(13, 30), "English Conversation"},
    WeeklyClass{kMeetingRoom, kWednesday, SlotAt(19), SlotAt(20, 30), "Book Circle"},
    WeeklyClass{kMeetingRoom, kThursday, SlotAt(10), SlotAt(12), "Advice Desk"},
    WeeklyClass{kKitchen, kMonday, SlotAt(11), SlotAt(14), "Lunch Club"},
    WeeklyClass{kKitchen, kThursday, SlotAt(11), SlotAt(14), "Lunch Club"},
    WeeklyClass{kKitchen, kSaturday, SlotAt(9), SlotAt(12), "Bread Baking"},
    WeeklyClass{kGardenRoom, kWednesday, SlotAt(10), SlotAt(11, 30), "Gardeners' Morning"},
    WeeklyClass{kGardenRoom, kSaturday, SlotAt(14), SlotAt(16), "Knit & Natter"},
};

struct SlotRange {
  int Begin;  ///< SlotAt the beginning.
  int End;    ///< SlotAt the end, not included.
};

/// When a guest hires a room.
constexpr std::array kUsualTimes = {
    SlotRange{SlotAt(8, 30), SlotAt(9, 30)},   SlotRange{SlotAt(11), SlotAt(13)},
    SlotRange{SlotAt(12, 30), SlotAt(13, 30)}, SlotRange{SlotAt(13), SlotAt(15)},
    SlotRange{SlotAt(14), SlotAt(17)},         SlotRange{SlotAt(15, 30), SlotAt(17, 30)},
    SlotRange{SlotAt(18), SlotAt(21)},         SlotRange{SlotAt(19), SlotAt(23)},
};

/// Something that takes place once, at its own time of day.
struct Occasion {
  const char* Event;
  SlotRange Time;
};

constexpr std::array kOccasions = {
    Occasion{"Blood Donors", {SlotAt(8, 30), SlotAt(12)}},
    Occasion{"First Aid Course", {SlotAt(9), SlotAt(12, 30)}},
    Occasion{"Craft Market", {SlotAt(10), SlotAt(16)}},
    Occasion{"Repair Cafe", {SlotAt(13), SlotAt(16)}},
    Occasion{"Anniversary Lunch", {SlotAt(12), SlotAt(15)}},
    Occasion{"Birthday Party", {SlotAt(14), SlotAt(17)}},
    Occasion{"School Rehearsal", {SlotAt(13), SlotAt(14, 30)}},
    Occasion{"Photo Workshop", {SlotAt(16), SlotAt(18)}},
    Occasion{"Allotment Society", {SlotAt(17, 30), SlotAt(18, 30)}},
    Occasion{"Residents' Meeting", {SlotAt(18), SlotAt(20)}},
    Occasion{"Board Meeting", {SlotAt(18, 30), SlotAt(20, 30)}},
    Occasion{"Poetry Evening", {SlotAt(20), SlotAt(22, 30)}},
};

Date FirstOfMonth(Date day) {
  return day.year() / day.month() / 1;
}

Date LastOfMonth(Date day) {
  return AddDays(FirstOfMonth(day + std::chrono::months{1}), -1);
}

class SampleMaker {
 public:
  explicit SampleMaker(Date today)
      : first_(FirstOfMonth(FirstOfMonth(today) - std::chrono::months{1})),
        last_(LastOfMonth(FirstOfMonth(today) + std::chrono::months{1})) {
    data_.Facilities = FacilityNames();
    data_.ActiveFacility = kMainHall;
    data_.Guests = GuestNames();
  }

  SampleData Make() {
    AddWeeklyClasses();
    AddDanceNights();
    for (Date month = first_; month < last_; month += std::chrono::months{1}) {
      AddSingleBookings(month);
    }
    return std::move(data_);
  }

 private:
  void AddWeeklyClasses() {
    for (std::size_t i = 0; i < kWeeklyClasses.size(); ++i) {
      const WeeklyClass& weekly = kWeeklyClasses[i];
      Date day = AddDays(first_, (weekly.Day - WeekdayNumber(first_) + 7) % 7);
      for (; day <= last_; day = AddDays(day, 7)) {
        Add(weekly.Room, day, {weekly.Begin, weekly.End}, weekly.Event, GroupKey(i));
      }
    }
  }

  /// The classes were entered one after another, two minutes each, ten days before the first month.
  std::int64_t GroupKey(std::size_t weekly_class) const {
    const Date made = AddDays(first_, -10);
    const auto minutes = static_cast<std::int64_t>(2 * weekly_class);
    const std::int64_t day = (YearOf(made) * 100 + MonthOf(made)) * 100 + DayOf(made);
    return (day * 100 + 9 + minutes / 60) * 10000 + minutes % 60 * 100 + 17;
  }

  /// One evening a month goes on until midnight.
  void AddDanceNights() {
    for (Date month = first_; month < last_; month += std::chrono::months{1}) {
      const Date end = LastOfMonth(month);
      const Date last_saturday = AddDays(end, -(WeekdayNumber(end) % 7));
      Add(kMainHall, last_saturday, {SlotAt(20), SlotAt(24)}, "Dance Night", std::nullopt);
    }
  }

  void AddSingleBookings(Date month) {
    random_.seed(static_cast<unsigned>(YearOf(month) * 12 + MonthOf(month)));
    for (Date day = month; day <= LastOfMonth(month); day = AddDays(day, 1)) {
      for (std::size_t room = 0; room < data_.Facilities.size(); ++room) {
        for (std::size_t wishes = WishesFor(room, day); wishes > 0; --wishes) {
          TryToAdd(room, day);
        }
      }
    }
  }

  /// The hall is asked for every day, most of all on Saturdays; the small rooms now and then.
  std::size_t WishesFor(std::size_t room, Date day) {
    if (room != kMainHall) {
      return Pick(2);
    }
    return WeekdayNumber(day) == kSaturday ? 4 : 1 + Pick(2);
  }

  void TryToAdd(std::size_t room, Date day) {
    Occasion wish = kOccasions[Pick(kOccasions.size())];
    std::string event = wish.Event;
    if (Pick(5) < 3) {
      event = data_.Guests[Pick(data_.Guests.size())];
      wish.Time = kUsualTimes[Pick(kUsualTimes.size())];
    }
    if (IsFree(room, day, wish.Time)) {
      Add(room, day, wish.Time, event, std::nullopt);
    }
  }

  bool IsFree(std::size_t room, Date day, SlotRange range) const {
    return std::none_of(data_.Bookings.begin(), data_.Bookings.end(), [&](const auto& booked) {
      return booked.Facility == room && booked.Day == day && booked.TimeFrom < range.End &&
             range.Begin <= booked.TimeTo;
    });
  }

  void Add(std::size_t room, Date day, SlotRange range, const std::string& event,
           std::optional<std::int64_t> group) {
    data_.Bookings.push_back({room, event, day, range.Begin, range.End - 1, group});
  }

  std::size_t Pick(std::size_t count) { return random_() % count; }

  const Date first_;
  const Date last_;
  SampleData data_;
  std::mt19937 random_;
};

}  // namespace

SampleData MakeSampleData(Date today) {
  return SampleMaker(today).Make();
}

}  // namespace veyra
