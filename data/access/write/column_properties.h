#pragma once

#include <string>
#include <vector>

#include "data/access/format/bytes.h"
#include "data/access/pages/page_changes.h"
#include "data/store.h"

namespace veyra::access {

// The properties of a table and its columns, which other programs of the format heed, stand in the
// column LvProp of its row in MSysObjects:
//
//   "MR2" 00
//   parts, each: its length with these six bytes, 4 bytes; its kind, 2 bytes
//     kind 80  the names of properties: length in 2 bytes, then UTF-16
//     kind 1   the properties of a column: the length of what names it, with these four bytes, 4
//              bytes; its name as those above; then each property:
//                length of the whole, 2 bytes; 1 where it is part of the schema; kind of its value
//                (1 yes/no, 12 text); place among the names, 2 bytes; length of the value, 2 bytes;
//                the value
//     others   left as they are

/// `old`, which may be empty, with the properties of new columns: "DefaultValue" where one has a
/// default, "AllowZeroLength" for texts, "Required", which is no. What is not a list of properties
/// is returned as it is.
Bytes WithColumnProperties(const Bytes& old, const std::vector<ColumnDefinition>& columns);

/// Writes the properties of a new column into the catalogue. Where the catalogue has no room for
/// any, as in old files, nothing is written.
void AddPropertiesToCatalogue(PageChanges& pages, PageNumber definition,
                              const ColumnDefinition& column);

}  // namespace veyra::access
