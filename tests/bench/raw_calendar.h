#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <functional>
#include <string>

#include "data/date.h"

namespace veyra {

/// A SQLite file as SQLite alone uses it, with one statement at a time. The functions throw
/// std::runtime_error for what SQLite refuses.
class RawFile {
 public:
  /// Opens the file, and makes it when it is not there.
  explicit RawFile(const std::string& file);
  ~RawFile();
  RawFile(const RawFile&) = delete;
  RawFile& operator=(const RawFile&) = delete;

  void Run(const char* sql);

  /// Ends the statement of before. The new one stays the file's.
  sqlite3_stmt* Prepare(const char* sql);

 private:
  sqlite3* handle_ = nullptr;
  sqlite3_stmt* statement_ = nullptr;
};

/// Throws std::runtime_error unless the code is one of success.
void Check(int code);

inline constexpr std::int64_t kRoomsOfRawCalendar = 50;

/// Bookings, spread evenly over the facilities 1 to 50 and over a span of days.
struct RawBookings {
  std::int64_t Count = 0;
  Date FirstDay{};
  int Days = 1;
  std::function<std::string(std::int64_t)> Name;  ///< Of each booking, from 0 up.
};

/// Makes a calendar of the facilities "Room 1" to "Room 50" with these bookings.
void MakeRawCalendar(const std::string& file, const RawBookings& bookings);

}  // namespace veyra
