#include "data/postgres/change_listener.h"

#include <charconv>
#include <sstream>
#include <utility>

#include "data/postgres/quoted.h"

namespace veyra::postgres {

namespace {

constexpr const char* kNone = "-";

std::optional<SharedChange::Kind> KindOf(const std::string& word) {
  if (word == "INSERT") {
    return SharedChange::Kind::Added;
  }
  if (word == "UPDATE") {
    return SharedChange::Kind::Set;
  }
  return word == "DELETE" ? std::optional(SharedChange::Kind::Removed) : std::nullopt;
}

std::optional<std::int64_t> NumberIn(const std::string& word) {
  std::int64_t number = 0;
  const char* const end = word.data() + word.size();
  const auto [stop, error] = std::from_chars(word.data(), end, number);
  return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

}  // namespace

std::optional<SharedChange> ReadNotice(const std::string& text) {
  std::istringstream words(text);
  std::string desk;
  std::string table;
  std::string kind;
  std::string facility;
  std::string day;
  words >> desk >> table >> kind >> facility >> day;
  const auto what = KindOf(kind);
  SharedChange change{.Table = table,
                      .What = what.value_or(SharedChange::Kind::Set),
                      .Facility = NumberIn(facility),
                      .Day = DateFromIsoText(day)};
  const bool is_understood =
      what && (change.Facility || facility == kNone) && (change.Day || day == kNone);
  return is_understood ? std::optional(std::move(change)) : std::nullopt;
}

ChangeListener::ChangeListener(Session& session)
    : session_(session), notices_(session.KeepNotices()) {}

void ChangeListener::Listen() {
  const Result own = session_.RunScript("LISTEN " + Quoted(session_.link().Schema) +
                                        "; SELECT pg_catalog.pg_backend_pid()");
  own_number_ = static_cast<int>(own.Number(0, 0));
  if (std::exchange(has_listened_, true)) {
    notices_.AddMissed();
  }
}

int ChangeListener::Descriptor() const {
  return notices_.Descriptor();
}

SharedChanges ChangeListener::TakeChanges() {
  session_.ReadArrived();
  const NoticeQueue::Content content = notices_.Take();
  SharedChanges changes{.Rows = {}, .MayBeAnything = content.WereMissed};
  for (const Notice& notice : content.Notices) {
    if (auto change = ReadNotice(notice.Text)) {
      change->IsOwn = notice.Sender == own_number_;
      changes.Rows.push_back(std::move(*change));
    } else {
      changes.MayBeAnything = true;
    }
  }
  return changes;
}

}  // namespace veyra::postgres
