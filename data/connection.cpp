#include "data/connection.h"

#include <utility>

namespace veyra {

Connection::Connection(std::unique_ptr<Store> store)
    : store_(std::make_unique<NotingStore>(std::move(store))) {}

std::unique_ptr<Recordset> Connection::Open(std::string_view sql, CursorType cursor) {
  return std::make_unique<Recordset>(*store_, ParseQuery(sql), cursor);
}

void Connection::ExplainMissingItems(const std::vector<NamedItem>& items, const Report& failure) {
  if (!explains_) {
    store_->WrapInner([&](std::unique_ptr<Store> store) {
      return std::make_unique<ExplainingStore>(std::move(store), items, failure);
    });
    explains_ = true;
  }
}

}  // namespace veyra
