#include "data/connection.h"

#include <utility>

namespace veyra {

Connection::Connection(std::unique_ptr<Store> store)
    : store_(std::make_unique<NotingStore>(std::move(store))) {}

std::unique_ptr<Recordset> Connection::Open(std::string_view sql, CursorType cursor) {
  return std::make_unique<Recordset>(*store_, ParseQuery(sql), cursor);
}

std::vector<std::unique_ptr<Recordset>> Connection::OpenAll(const std::vector<std::string>& sql) {
  std::vector<Query> queries;
  for (const std::string& text : sql) {
    queries.push_back(ParseQuery(text));
  }
  auto sources = store_->SelectAll(queries);
  std::vector<std::unique_ptr<Recordset>> opened;
  for (std::size_t i = 0; i < queries.size(); ++i) {
    opened.push_back(
        std::make_unique<Recordset>(*store_, std::move(queries[i]), std::move(sources[i])));
  }
  return opened;
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
