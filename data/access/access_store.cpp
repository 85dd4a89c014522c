#include "data/access/access_store.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "data/access/check/check_file.h"
#include "data/access/format/file_header.h"
#include "data/access/held_file.h"
#include "data/access/pages/copy_file.h"
#include "data/access/read/describe.h"
#include "data/access/write/change_words.h"
#include "data/access/write/journal_writer.h"
#include "data/access/write/row_changes.h"
#include "data/access/write/row_writer.h"
#include "data/access/write/schema_writer.h"
#include "data/access/write/table_writer.h"
#include "data/file_store.h"
#include "data/names.h"
#include "data/same_rows.h"
#include "data/store_errors.h"

namespace veyra {

namespace {

/// So many that a booking on every day of a year is made in three changes, and so few that the
/// operator sees them come.
constexpr std::size_t kRowsAtOnce = 128;

using access::Reporting;

class AccessStore : public FileStore {
 public:
  AccessStore(const std::string& file_name, StoreAccess access, const WaitPolicy& policy,
              access::CommitObserver observer, Durability durability)
      : file_(file_name, access, policy, std::move(observer), durability) {}

  const std::string& FileName() const override { return file_.Name(); }

  std::vector<std::string> TableNames() override {
    return file_.Reading({}, [&] {
      std::vector<std::string> names;
      for (const access::CatalogueEntry& entry : file_.Tables().Tables()) {
        names.push_back(entry.Name);
      }
      return names;
    });
  }

  std::vector<std::string> ColumnNames(const std::string& table) override {
    return file_.Reading(table, [&] {
      std::vector<std::string> names;
      for (const access::ColumnLayout& column : file_.Tables().Table(table)->Layout().Columns) {
        names.push_back(column.Name);
      }
      return names;
    });
  }

  std::size_t FittingCharacters(const std::string& table, const std::string& column,
                                std::string_view text) override {
    return access::FittingCharacters(KnownColumn(table, column), text);
  }

  StoreDescription Describe() override {
    return file_.Reading({}, [&] {
      StoreDescription description = access::DescribeFile(file_.Pages().Header());
      const std::vector<access::CatalogueEntry> tables = file_.Tables().Tables();
      description.OtherObjects = access::CountOtherObjects(file_.Pages());
      for (const access::CatalogueEntry& entry : tables) {
        const auto image = file_.Tables().Table(entry.Name);
        description.Tables.push_back(
            access::DescribeTable(entry.Name, image->Layout(), file_.Pages().Header().Version));
      }
      return description;
    });
  }

  std::unique_ptr<RowSource> Select(const Query& query) override {
    return file_.Reading(query.Table,
                         [&]() -> std::unique_ptr<RowSource> { return file_.RowsOf(query); });
  }

  Row Insert(const std::string& table, const FieldValues& fields) override {
    const std::string what = access::WordsForInsert(table, fields);
    return file_.WritingRows(table, what,
                             [&](access::PageChanges& changes, access::TableWriter& writer) {
                               return file_.Rows().Insert(changes, writer, table, fields);
                             });
  }

  std::size_t RowsAtOnce() const override { return kRowsAtOnce; }

  std::vector<Row> InsertAll(const std::string& table,
                             const std::vector<FieldValues>& rows) override {
    const std::string what = access::WordsForInsertAll(table, rows);
    return file_.WritingRows(table, what,
                             [&](access::PageChanges& changes, access::TableWriter& writer) {
                               return file_.Rows().InsertAll(changes, writer, table, rows);
                             });
  }

  void Fill(const std::string& table, const std::vector<FieldValues>& rows) override {
    if (KeepsJournal()) {
      InsertAll(table, rows);
      return;
    }
    const std::string what = access::WordsForInsertAll(table, rows);
    const access::PendingEntries added = file_.WritingRows(
        table, what, [&](access::PageChanges& changes, access::TableWriter& writer) {
          return access::FillRows(changes, writer, rows);
        });
    access::PendingEntries& pending = pending_[table];
    pending.resize(std::max(pending.size(), added.size()));
    for (std::size_t i = 0; i < added.size(); ++i) {
      pending[i].insert(pending[i].end(), added[i].begin(), added[i].end());
    }
  }

  void EndFilling(const std::string& table) override {
    auto filled = pending_.extract(table);
    if (!filled.empty()) {
      file_.WritingRows(table, "the indexes of the table " + table,
                        [&](access::PageChanges&, access::TableWriter& writer) {
                          writer.AddEntries(std::move(filled.mapped()));
                          return 0;
                        });
    }
  }

  Row Update(const std::string& table, const Row& before, const FieldValues& fields) override {
    std::string what;
    return file_.WritingRows(table, what,
                             [&](access::PageChanges& changes, access::TableWriter& writer) {
                               what = access::WordsForUpdate(table, writer.Layout(), before);
                               return file_.Rows().Update(changes, writer, table, before, fields);
                             });
  }

  void Delete(const std::string& table, const Row& before) override {
    std::string what;
    file_.WritingRows(table, what, [&](access::PageChanges& changes, access::TableWriter& writer) {
      what = access::WordsForDelete(table, writer.Layout(), before);
      file_.Rows().Delete(changes, writer, table, before);
      return 0;
    });
  }

  void DeleteAll(const std::string& table, const std::vector<Row>& rows) override {
    std::string what;
    file_.WritingRows(table, what, [&](access::PageChanges& changes, access::TableWriter& writer) {
      what = access::WordsForDeleteAll(table, writer.Layout(), rows);
      for (const Row& row : rows) {
        file_.Rows().Delete(changes, writer, table, row);
      }
      return 0;
    });
  }

  std::vector<Row> UpdateAll(const std::string& table, const std::vector<Row>& rows,
                             const FieldValues& fields) override {
    std::string what;
    return file_.WritingRows(
        table, what, [&](access::PageChanges& changes, access::TableWriter& writer) {
          what = access::WordsForUpdateAll(table, writer.Layout(), rows);
          std::vector<Row> changed;
          changed.reserve(rows.size());
          for (const Row& row : rows) {
            changed.push_back(file_.Rows().Update(changes, writer, table, row, fields));
          }
          return changed;
        });
  }

  void CreateTable(const TableDefinition& definition) override {
    file_.Writing(definition.Name, "the new table " + definition.Name,
                  [&](access::PageChanges& changes) {
                    access::CreateTable(changes, definition);
                    return 0;
                  });
  }

  void AddColumn(const std::string& table, const ColumnDefinition& column) override {
    const std::string what = "the new column " + column.Name + " of the table " + table;
    file_.WritingRows(table, what, [&](access::PageChanges& changes, access::TableWriter& writer) {
      access::AddColumn(changes, writer.Layout().Page, column);
      return 0;
    });
  }

  void ChangeAll(const std::vector<RowChange>& changes,
                 const std::vector<QueryResult>& seen) override {
    file_.Writing({}, access::WordsForChangeAll(changes), [&](access::PageChanges& pages) {
      for (const QueryResult& result : seen) {
        CheckStillGiven(result);
      }
      for (const RowChange& change : changes) {
        Reporting(file_.Name(), change.Table, [&] { file_.Rows().Make(pages, change); });
      }
      return 0;
    });
  }

  void CopyTo(const std::string& new_file) override {
    file_.Reading({}, [&] {
      access::CopyFile(file_.Pages(), new_file);
      return 0;
    });
  }

  bool KeepsJournal() override {
    return file_.Reading(
        {}, [&] { return access::JournalWriter::IsKept(file_.Pages(), file_.Tables()); });
  }

  void KeepJournal(bool keep) override {
    const std::vector<std::string> tables = TableNames();
    if (keep && !FindName(tables, kJournalTable)) {
      CreateTable(JournalTable());
    }
    if (!FindName(tables, access::kJournalSwitch)) {
      if (keep) {
        CreateTable(access::JournalSwitchTable());
      }
      return;
    }
    Query query;
    query.Table = access::kJournalSwitch;
    Row row;
    if (Select(query)->Next(row)) {
      Update(query.Table, row, {{"Kept", std::int64_t{keep ? 1 : 0}}});
    }
  }

  std::shared_ptr<const void> MarkOf(const std::string& table) override {
    return file_.Reading(table, [&] { return file_.Tables().MarkOf(table); });
  }

  void BeginAction(const std::string& name) override {
    file_.Rows().Journal().action().Begin(name);
  }
  void EndAction() override { file_.Rows().Journal().action().End(); }

  std::vector<Phrase> Verify() override {
    return file_.Reading({}, [&] { return access::CheckFile(file_.Pages()); });
  }

  std::int64_t LastNumber(const std::string& table) override {
    return file_.Reading(table, [&] {
      const access::TableLayout& layout = file_.Tables().Table(table)->Layout();
      const bool gives = std::any_of(layout.Columns.begin(), layout.Columns.end(),
                                     [](const auto& column) { return column.IsAutoNumber(); });
      const auto last = static_cast<std::int32_t>(layout.LastAutoNumber);
      return gives && last > 0 ? std::int64_t{last} : 0;
    });
  }

  std::optional<Report> TakeNotice() override { return file_.TakeNotice(); }

 private:
  void CheckStillGiven(const QueryResult& result) {
    Reporting(file_.Name(), result.Asked.Table, [&] {
      if (!GivesTheSame(*file_.RowsOf(result.Asked), result.Rows)) {
        throw RowsChanged(file_.Name(), result.Asked.Table);
      }
    });
  }

  /// A column as it was when first asked for: its kind and its length never change.
  access::ColumnLayout KnownColumn(const std::string& table, const std::string& column) {
    const auto known = known_columns_.find({table, column});
    if (known != known_columns_.end()) {
      return known->second;
    }
    return file_.Reading(table, [&] {
      const access::TableLayout& layout = file_.Tables().Table(table)->Layout();
      const std::size_t place = layout.FindColumn(column);
      if (place == layout.Columns.size()) {
        throw access::StoreProblem(access::Refusal::NoColumn, column);
      }
      return known_columns_[{table, column}] = layout.Columns[place];
    });
  }

  access::HeldFile file_;
  std::map<std::pair<std::string, std::string>, access::ColumnLayout> known_columns_;
  std::map<std::string, access::PendingEntries> pending_;
};

}  // namespace

bool IsAccessStore(const Store& store) {
  return dynamic_cast<const AccessStore*>(&store) != nullptr;
}

bool LooksLikeAccess(std::string_view first_bytes) {
  const access::Bytes bytes(first_bytes.begin(), first_bytes.end());
  return access::HasAccessSignature(bytes);
}

std::unique_ptr<Store> OpenAccessStore(const std::string& file_name, StoreAccess access,
                                       const WaitPolicy& policy, access::CommitObserver observer) {
  return Reporting(file_name, {}, [&]() -> std::unique_ptr<Store> {
    return std::make_unique<AccessStore>(file_name, access, policy, std::move(observer),
                                         Durability::AtOnce);
  });
}

std::unique_ptr<Store> OpenNewAccessStore(const std::string& file_name, Durability durability) {
  return Reporting(file_name, {}, [&]() -> std::unique_ptr<Store> {
    return std::make_unique<AccessStore>(file_name, StoreAccess::ReadWrite, kStoreTimeout,
                                         access::CommitObserver(), durability);
  });
}

}  // namespace veyra
