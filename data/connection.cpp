#include "data/connection.h"

#include <utility>

namespace veyra {

Connection::Connection(std::unique_ptr<Store> store) : store_(std::move(store)) {}

std::unique_ptr<Recordset> Connection::Open(std::string_view sql, CursorType cursor) {
  return std::make_unique<Recordset>(*store_, ParseQuery(sql), cursor);
}

}  // namespace veyra
