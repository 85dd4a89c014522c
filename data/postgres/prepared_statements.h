#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>

namespace veyra::postgres {

/// Which statements a connection has prepared, and under which names.
class PreparedStatements {
 public:
  /// How a statement is to be sent.
  struct Way {
    std::string Name;         ///< Empty: as text.
    bool IsToBeMade = false;  ///< It must be prepared under that name before.
  };

  /// The way for a text that is sent now. To prepare one is work for the server: it is worth it
  /// from the second time on.
  Way Next(const std::string& sql);

  /// The server has refused something before it came to prepare this, perhaps: it is done anew.
  void Unmake(const std::string& sql) { names_[sql].clear(); }

  void Clear() { names_.clear(); }
  std::size_t Count() const { return names_.size(); }

 private:
  /// The name of each text; empty when it was sent once.
  std::unordered_map<std::string, std::string> names_;
  long last_ = 0;
};

}  // namespace veyra::postgres
