#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "help/archive_stream.h"
#include "help/contents.h"

namespace veyra {

/// A compiled help file (.chm), whole in memory: its pages, pictures and style sheets, and what its
/// tables say about them. Does not change once made.
///
/// A page is named by a reference: "month.htm", "sub/month.htm#paging". Letter case, backslashes, a
/// leading "/" or "./", and "help.chm::" before it make no difference.
class ChmArchive {
 public:
  explicit ChmArchive(std::vector<HelpObject> objects);

  /// The bytes of an object, or null when the archive holds none of that name.
  const std::string* Object(std::string_view reference) const;

  /// A page's HTML as UTF-8; nothing when there is no such page.
  std::optional<std::string> Page(std::string_view reference) const;

  /// The reference of the page that a context number stands for. Nothing when the number is not
  /// mapped, or to a page that is not there. A table that holds a page's full name on the machine
  /// where the file was compiled is understood.
  std::optional<std::string> Topic(int number) const;

  /// The page to begin with: the one the file names, else the first of its contents, else its
  /// first.
  std::string FirstPage() const;

  /// The file's title; empty when it has none.
  const std::string& Title() const { return title_; }

  /// The contents; without a contents file every page under its title.
  const std::vector<ContentsEntry>& Contents() const { return contents_; }

  /// The references of all pages, in the order of their names.
  const std::vector<std::string>& Pages() const { return pages_; }

 private:
  void TakeSystemTable();
  std::string ContentsFile() const;
  std::vector<ContentsEntry> AllPages() const;

  std::map<std::string, HelpObject> objects_;  ///< By name in upper case, without leading "/".
  std::string code_page_ = "CP1252";
  std::string title_;
  std::string first_page_;
  std::string contents_file_;
  std::vector<std::string> pages_;
  std::vector<ContentsEntry> contents_;
};

/// A reference without what makes no difference, in its own letter case: slashes forward, "." and
/// ".." resolved, %20 and the like resolved, and "#anchor" kept.
std::string PlainReference(std::string_view reference);

}  // namespace veyra
