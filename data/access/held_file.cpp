#include "data/access/held_file.h"

#include "data/access/format/file_header.h"
#include "data/access/pages/journal.h"
#include "data/access/pages/other_program.h"

namespace veyra::access {

HeldFile::HeldFile(const std::string& file_name, StoreAccess access, const WaitPolicy& policy,
                   CommitObserver observer, Durability durability)
    : name_(file_name),
      policy_(policy),
      durability_(durability),
      observer_(std::move(observer)),
      watch_(file_name),
      pages_(file_name, access != StoreAccess::ReadOnly),
      tables_(pages_) {
  if (durability == Durability::WhenAsked) {
    pages_.ExpectNoOtherWriter();
  }
  TakeFor(access);
  broken_change_.Finish();
}

void HeldFile::TakeFor(StoreAccess access) {
  if (access == StoreAccess::ReadOnly) {
    return;
  }
  const bool exclusive = access == StoreAccess::Exclusive;
  if (exclusive) {
    CheckNobodyElse();
  }
  use_.emplace(pages_.File().Descriptor(),
               exclusive ? FileLock::Kind::Exclusive : FileLock::Kind::Open, policy_);
}

void HeldFile::CheckMayWrite() const {
  if (!pages_.IsWritable()) {
    throw StoreProblem(Refusal::ReadingOnly);
  }
  access::CheckMayWrite(pages_.Header());
  CheckNobodyElse();
}

/// Other programs may know the file by the name of a link to it.
void HeldFile::CheckNobodyElse() const {
  access::CheckNobodyElse(pages_.Path());
  access::CheckNobodyElse(name_);
}

void HeldFile::Commit(const PageImages& images, const std::string& what) {
  if (images.empty()) {
    return;
  }
  Snapshot::Images read = tables_.TakeImages();
  if (durability_ == Durability::AtOnce) {
    CommitPages(pages_, images, what, observer_);
  } else {
    pages_.Write(images);
  }
  tables_.MendImages(std::move(read), images);
  rows_.Journal().EndCommit();
}

}  // namespace veyra::access
