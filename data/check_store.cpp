#include "data/check_store.h"

#include <fstream>

#include "data/access/access_store.h"
#include "data/errors.h"
#include "data/open_store.h"

namespace veyra {

std::vector<std::string> CheckDatabaseFile(const std::string& file_name) {
  const auto store = OpenStore(file_name, StoreAccess::ReadOnly);
  constexpr std::size_t kFirstBytes = 19;
  std::string bytes(kFirstBytes, '\0');
  std::ifstream(store->FileName(), std::ios::binary).read(bytes.data(), kFirstBytes);
  if (!LooksLikeAccess(bytes)) {
    throw DatabaseError({store->FileName(), "This is no Access file, and others are not checked.",
                         "Ask the sqlite3 program: sqlite3 FILE \"PRAGMA integrity_check\"."});
  }
  return CheckAccessFile(store->FileName());
}

}  // namespace veyra
