#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/color_settings.h"
#include "data/date.h"
#include "logic/multiday.h"
#include "logic/slots.h"

namespace veyra::soak {

/// What the calendar must hold: the facilities and bookings as the rules change them, kept in
/// memory by nothing but these rules.
class Model {
 public:
  struct Room {
    std::string Name;
    bool Active = false;
  };
  struct Booking {
    std::string Room;
    std::string Event;
    Date Day{};
    modRes::SlotRange Slots;
    int Group = 0;  ///< 0 for a single booking.
  };

  const std::vector<Room>& Rooms() const { return rooms_; }
  const std::vector<Booking>& Bookings() const { return bookings_; }
  const std::string& Current() const { return current_; }

  void AddRoom(const std::string& name);
  void ChooseRoom(const std::string& name);
  void DeleteRoom();  ///< The current one, with its bookings.

  void Book(const std::string& name, Date day, modRes::SlotRange slots);

  /// Books every date of the plan on which no booking holds the first or last slot; returns how
  /// many.
  int BookPlan(const std::string& name, const MultiDayPlan& plan, modRes::SlotRange slots);

  /// How many dates BookPlan would book.
  int FreeDates(const MultiDayPlan& plan, modRes::SlotRange slots) const;

  /// Deletes the first booking of the day that covers the slots. Returns whether there was one.
  bool Delete(Date day, modRes::SlotRange slots);

  /// Deletes the group of that booking; returns how many bookings it had.
  int DeleteGroup(Date day, modRes::SlotRange slots);

  bool Rename(Date day, modRes::SlotRange slots, const std::string& name);
  int RenameGroup(Date day, modRes::SlotRange slots, const std::string& name);

  void SaveColors(const ColorSettings& colors) { colors_ = colors; }
  const ColorSettings& Colors() const { return colors_; }

  /// The lines of a day of the current facility, in no order of their own.
  std::vector<std::string> Lines(Date day) const;

  /// The tables as one text.
  std::string Text() const;

 private:
  /// Of the bookings that cover the slots, the one that the grid shows: the last of those that
  /// begin latest.
  Booking* Find(Date day, modRes::SlotRange slots);

  std::vector<Room> rooms_;
  std::vector<Booking> bookings_;
  std::string current_;
  int groups_ = 0;
  ColorSettings colors_;
};

/// The tables of a calendar as the same text, as an operator of another program reads them.
std::string TextOfTables(const std::string& calendar);

}  // namespace veyra::soak
