#include "data/lost_store.h"

#include <utility>

namespace veyra {

namespace {

class LostStore : public Store {
 public:
  LostStore(std::string file, Report why) : file_(std::move(file)), why_(std::move(why)) {}

  const std::string& FileName() const override { return file_; }
  std::vector<std::string> TableNames() override { Fail(); }
  std::vector<std::string> ColumnNames(const std::string&) override { Fail(); }
  std::size_t FittingCharacters(const std::string&, const std::string&, std::string_view) override {
    Fail();
  }
  StoreDescription Describe() override { Fail(); }
  std::unique_ptr<RowSource> Select(const Query&) override { Fail(); }
  Row Insert(const std::string&, const FieldValues&) override { Fail(); }
  Row Update(const std::string&, const Row&, const FieldValues&) override { Fail(); }
  void Delete(const std::string&, const Row&) override { Fail(); }
  void ChangeAll(const std::vector<RowChange>&, const std::vector<QueryResult>&) override {
    Fail();
  }
  bool KeepsJournal() override { Fail(); }
  void CreateTable(const TableDefinition&) override { Fail(); }
  void AddColumn(const std::string&, const ColumnDefinition&) override { Fail(); }

 private:
  [[noreturn]] void Fail() const { throw FileReplacedError(why_); }

  std::string file_;
  Report why_;
};

}  // namespace

std::unique_ptr<Store> MakeLostStore(const std::string& file, const Report& why) {
  return std::make_unique<LostStore>(file, why);
}

}  // namespace veyra
