#include "tests/soak/model.h"

#include <algorithm>
#include <map>

#include "data/connection.h"
#include "data/open_store.h"
#include "data/text.h"
#include "logic/date_parser.h"
#include "logic/rename_bookings.h"

namespace veyra::soak {

namespace {

bool Holds(const modRes::SlotRange& range, modRes::TimeSlot slot) {
  return range.First <= slot && slot <= range.Last;
}

std::vector<Date> DatesOf(const MultiDayPlan& plan) {
  const Date today = MakeDate(2014, 3, 15).value();
  const auto from = ParseDate(plan.Text1[0], today);
  const auto to = ParseDate(plan.Text1[1], today);
  std::vector<Date> dates;
  if (!from || !to) {
    return dates;
  }
  for (Date day = *from; day <= *to; day = AddDays(day, 1)) {
    if (plan.Days[WeekdayNumber(day)]) {
      dates.push_back(day);
    }
  }
  return dates;
}

std::string BookingLine(const std::string& room, const std::string& event, const std::string& day,
                        const std::string& from, const std::string& to, bool has_group) {
  return room + "|" + event + "|" + day + "|" + from + "|" + to + (has_group ? "|group" : "|");
}

std::string Joined(const std::vector<std::string>& rooms, std::vector<std::string> bookings,
                   const ColorSettings& colors) {
  std::sort(bookings.begin(), bookings.end());
  std::string text;
  for (const std::string& line : rooms) {
    text += line + "\n";
  }
  for (const std::string& line : bookings) {
    text += line + "\n";
  }
  return text + colors.BkGrnd + "|" + colors.HeaderTxt + "|" + colors.DaysTxtColor + "|" +
         colors.TodayColor + "|" + colors.TodayBColor + "\n";
}

}  // namespace

void Model::AddRoom(const std::string& name) {
  rooms_.push_back({name, true});
  current_ = name;
}

void Model::ChooseRoom(const std::string& name) {
  for (Room& room : rooms_) {
    room.Active = room.Name == name;
  }
  current_ = name;
}

void Model::DeleteRoom() {
  std::erase_if(bookings_, [&](const Booking& booking) { return booking.Room == current_; });
  std::erase_if(rooms_, [&](const Room& room) { return room.Name == current_; });
  current_.clear();
  if (!rooms_.empty()) {
    rooms_.front().Active = true;
    current_ = rooms_.front().Name;
  }
}

void Model::Book(const std::string& name, Date day, modRes::SlotRange slots) {
  bookings_.push_back({current_, name, day, slots, 0});
}

int Model::FreeDates(const MultiDayPlan& plan, modRes::SlotRange slots) const {
  const std::vector<Date> dates = DatesOf(plan);
  return static_cast<int>(std::count_if(dates.begin(), dates.end(), [&](Date day) {
    return std::none_of(bookings_.begin(), bookings_.end(), [&](const Booking& booking) {
      return booking.Day == day &&
             (Holds(booking.Slots, slots.First) || Holds(booking.Slots, slots.Last));
    });
  }));
}

int Model::BookPlan(const std::string& name, const MultiDayPlan& plan, modRes::SlotRange slots) {
  const int group = ++groups_;
  int booked = 0;
  for (const Date day : DatesOf(plan)) {
    MultiDayPlan one_day{{DateText(day), DateText(day)}, plan.Days};
    if (FreeDates(one_day, slots) == 1) {
      bookings_.push_back({current_, name, day, slots, group});
      ++booked;
    }
  }
  return booked;
}

Model::Booking* Model::Find(Date day, modRes::SlotRange slots) {
  Booking* shown = nullptr;
  for (Booking& booking : bookings_) {
    const bool covers = booking.Room == current_ && booking.Day == day &&
                        booking.Slots.First <= slots.First && booking.Slots.Last >= slots.Last;
    if (covers && (shown == nullptr || booking.Slots.First >= shown->Slots.First)) {
      shown = &booking;
    }
  }
  return shown;
}

bool Model::Delete(Date day, modRes::SlotRange slots) {
  const Booking* found = Find(day, slots);
  if (found == nullptr) {
    return false;
  }
  bookings_.erase(bookings_.begin() + (found - bookings_.data()));
  return true;
}

int Model::DeleteGroup(Date day, modRes::SlotRange slots) {
  const Booking* found = Find(day, slots);
  const int group = found != nullptr ? found->Group : 0;
  return group == 0 ? 0 : static_cast<int>(std::erase_if(bookings_, [&](const Booking& booking) {
    return booking.Group == group;
  }));
}

bool Model::Rename(Date day, modRes::SlotRange slots, const std::string& name) {
  Booking* found = Find(day, slots);
  if (found != nullptr) {
    found->Event = FirstCharacters(name, modRes::kLongestNewName);
  }
  return found != nullptr;
}

int Model::RenameGroup(Date day, modRes::SlotRange slots, const std::string& name) {
  const Booking* found = Find(day, slots);
  const int group = found != nullptr ? found->Group : 0;
  int renamed = 0;
  for (Booking& booking : bookings_) {
    if (group != 0 && booking.Group == group) {
      booking.Event = name;
      ++renamed;
    }
  }
  return renamed;
}

std::vector<std::string> Model::Lines(Date day) const {
  modRes::SlotLabelTable labels;
  modRes::SlotLabels(labels);
  std::vector<std::string> lines;
  for (const Booking& booking : bookings_) {
    if (booking.Room == current_ && booking.Day == day) {
      lines.push_back(modRes::RangeLabel(labels, booking.Slots) + " " + booking.Event);
    }
  }
  return lines;
}

std::string Model::Text() const {
  std::vector<std::string> rooms;
  for (const Room& room : rooms_) {
    rooms.push_back(room.Name + (room.Active ? "|active" : "|"));
  }
  std::vector<std::string> bookings;
  for (const Booking& one : bookings_) {
    bookings.push_back(BookingLine(one.Room, one.Event, IsoText(one.Day),
                                   std::to_string(one.Slots.First), std::to_string(one.Slots.Last),
                                   one.Group != 0));
  }
  return Joined(rooms, std::move(bookings), colors_);
}

std::string TextOfTables(const std::string& calendar) {
  Connection connection(OpenStore(calendar, StoreAccess::ReadWrite));
  std::vector<std::string> lines;
  std::map<std::string, std::string> names;
  const auto rooms = connection.Open("SELECT * FROM Rooms", CursorType::ForwardOnlyReadOnly);
  for (; !rooms->AtEnd(); rooms->MoveNext()) {
    const std::string name = ToText(rooms->Field("Name"));
    names[ToText(rooms->Field("ID"))] = name;
    lines.push_back(name + (ToInteger(rooms->Field("Active")) == 1 ? "|active" : "|"));
  }
  std::vector<std::string> bookings;
  const auto rows = connection.Open("SELECT * FROM Reserv", CursorType::ForwardOnlyReadOnly);
  for (; !rows->AtEnd(); rows->MoveNext()) {
    bookings.push_back(BookingLine(names[ToText(rows->Field("RmID"))], ToText(rows->Field("Event")),
                                   ToText(rows->Field("DateOfRes")),
                                   ToText(rows->Field("TimeFrom")), ToText(rows->Field("TimeTo")),
                                   ToDouble(rows->Field("MultKey")).value_or(0) > 0));
  }
  ColorSettings colors;
  ColorSettings stored;
  LoadColorSettings(connection, colors, stored);
  return Joined(lines, std::move(bookings), colors);
}

}  // namespace veyra::soak
