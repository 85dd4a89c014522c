#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "data/change_feed.h"
#include "data/forwarding_store.h"

namespace veyra {

/// Tells what the test says that other desks have done.
class FakeFeed : public ChangeFeed {
 public:
  int Descriptor() const override { return 7; }
  SharedChanges TakeChanges() override { return std::exchange(told_, {}); }

  void TellBooking(std::int64_t facility, const std::string& day, bool is_own = false) {
    told_.Rows.push_back({.Table = "Reserv",
                          .What = SharedChange::Kind::Added,
                          .Facility = facility,
                          .Day = DateFromIsoText(day),
                          .IsOwn = is_own});
  }
  void TellFacility(std::int64_t facility, bool is_own = false) {
    told_.Rows.push_back({.Table = "Rooms",
                          .What = SharedChange::Kind::Set,
                          .Facility = facility,
                          .Day = std::nullopt,
                          .IsOwn = is_own});
  }
  void TellAnything() { told_.MayBeAnything = true; }

 private:
  SharedChanges told_;
};

/// A store of any kind with a feed that the test moves.
class ToldStore : public ForwardingStore {
 public:
  /// `feed` must outlive the store.
  ToldStore(std::unique_ptr<Store> store, FakeFeed& feed)
      : ForwardingStore(std::move(store)), feed_(feed) {}

  ChangeFeed* Feed() override { return &feed_; }

 private:
  FakeFeed& feed_;
};

}  // namespace veyra
