#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "data/date.h"
#include "data/store.h"
#include "logic/slots.h"

namespace veyra::modRes {

/// A booking whose name was looked for.
struct FoundBooking {
  std::int64_t RmID = 0;
  std::string Facility;
  std::string Event;
  Date Day{};
  SlotRange Slots;
};

/// Finds bookings of all facilities and days by their names, piece by piece, so that a window goes
/// on answering meanwhile. Bookings of facilities that are gone are left out, and so are those
/// whose day or times cannot be told.
///
/// A name is found when each word that is looked for begins one of its words, in any letter case. A
/// word is what stands between blanks and signs.
class BookingFinder {
 public:
  using Time = std::chrono::steady_clock::duration;

  /// So many are found of those to come, and so many of those past.
  static constexpr std::size_t kMost = 200;

  /// `store` must outlive it, and not be changed meanwhile. Throws DatabaseError.
  BookingFinder(Store& store, Date today);
  ~BookingFinder();

  /// Looks for these words from now on; for nothing when there is none in the text.
  void LookFor(std::string_view text);

  /// Reads and looks on for about so long, longer only for one booking or day. Returns whether
  /// anything is left to be done. Throws DatabaseError.
  bool WorkOn(Time budget);

  /// Those of today and after, the next one first.
  const std::vector<FoundBooking>& Upcoming() const { return upcoming_.Found; }

  /// Those before today, the last one first.
  const std::vector<FoundBooking>& Past() const { return past_.Found; }

  bool IsLooking() const { return !words_.empty(); }

  /// Whether there is nothing more to be found.
  bool IsDone() const;

 private:
  struct Booking {
    std::int64_t RmID = 0;
    std::uint32_t Name = 0;
    Date Day{};
    SlotRange Slots;
  };

  /// The bookings on one side of today, in the order in which they are told.
  struct Side {
    Query Asked;
    std::unique_ptr<RowSource> Rows = nullptr;  ///< Those still to be read.
    bool IsRead = false;
    std::vector<Booking> Bookings = {};
    std::size_t Whole = 0;   ///< So many are of days that have been read whole.
    std::size_t Looked = 0;  ///< So many have been looked at.
    std::vector<FoundBooking> Found = {};
  };

  enum class Match : char { Unknown, No, Yes };

  bool WorkOn(Side& side, std::chrono::steady_clock::time_point end);
  void LookOn(Side& side, std::chrono::steady_clock::time_point end);
  void ReadOn(Side& side, std::chrono::steady_clock::time_point end);
  void Take(Side& side, const Row& row);
  void EndDay(Side& side);
  std::uint32_t NumberOf(const std::string& name);
  bool Matches(std::uint32_t name);
  bool IsLookedThrough(const Side& side) const;

  Store& store_;
  std::map<std::int64_t, std::string> facilities_;
  std::size_t room_column_ = 0;
  std::size_t event_column_ = 0;
  std::size_t day_column_ = 0;
  std::size_t from_column_ = 0;
  std::size_t to_column_ = 0;
  Side upcoming_;
  Side past_;
  std::vector<const std::string*> names_;
  std::unordered_map<std::string, std::uint32_t> numbers_;
  std::vector<std::string> searched_;  ///< By name: its words, each behind a blank.
  std::vector<Match> matches_;         ///< By name.
  std::vector<std::string> words_;     ///< Looked for, each behind a blank.
};

/// "Saturday, 3/15/2014,  9:00A-10:30A, Main Hall, Smith"
Phrase FoundLine(const SlotLabelTable& labels, const FoundBooking& booking);

}  // namespace veyra::modRes
