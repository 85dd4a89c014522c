#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "data/access/pages/commit_step.h"
#include "data/durability.h"
#include "data/store.h"
#include "data/store_access.h"
#include "data/waiting.h"

namespace veyra {

/// Whether a file that begins so is an Access database of any version, readable or not. 19 bytes
/// are enough.
bool LooksLikeAccess(std::string_view first_bytes);

/// Opens an existing Access database (.mdb) of Access 97 to 2003. `file_name` is written as this
/// platform writes it.
///
/// Any of these files is read, encoded ones too, also while another program has it open. Dates are
/// given as dates, without their time of day; yes and no as 1 and 0; money, decimals and GUIDs as
/// text; pictures and other long binary data as null. Rows come in the order of their places in
/// the file. In a table with an auto number that is the order they were added in as long as no
/// other program filled gaps; in one without, added rows take the room of deleted ones.
///
/// Files of Access 2000 to 2003 are also written, by way of a journal beside the file (journal.h)
/// that the next opening finishes if this program breaks off. Before anything is written, refused
/// are: files of Access 97, encoded files, tables with an index on texts or on other columns whose
/// order is not known here, and any file that a lock file beside it says another program has open.
///
/// `observer` is told each step of writing a change.
/// Throws DatabaseError when the file is missing, no Access database, of a newer version, protected
/// by a password or damaged, or for ReadWrite one that may not be written to.
std::unique_ptr<Store> OpenAccessStore(const std::string& file_name, StoreAccess access,
                                       const WaitPolicy& policy = {},
                                       access::CommitObserver observer = {});

/// Whether it is a store that one of these two has given.
bool IsAccessStore(const Store& store);

/// Opens for reading and writing a database that CreateAccessFile has just made and nobody else
/// knows of yet. With Durability::WhenAsked each change goes straight into the file, without a
/// journal.
std::unique_ptr<Store> OpenNewAccessStore(const std::string& file_name, Durability durability);

}  // namespace veyra
