#include "data/access/read/snapshot.h"

#include <optional>
#include <thread>

namespace veyra::access {

/// Loads until the file stood still meanwhile, and what was loaded is sound.
template <typename Load>
auto Snapshot::ReadSteadily(const Load& load) {
  std::chrono::milliseconds wait = policy_.FirstWait;
  for (int attempt = 1;; ++attempt) {
    const bool is_last = attempt >= policy_.Attempts;
    try {
      auto loaded = load();
      if (file_.IsSteady()) {
        return loaded;
      }
      if (is_last) {
        throw FileProblem(
            Phrase::Tr("Another program kept changing the database while it was read."),
            Phrase::Tr("Try again in a moment."));
      }
    } catch (const DamagedFile&) {
      if (is_last) {
        throw;
      }
    }
    std::this_thread::sleep_for(wait);
    wait *= 2;
    Forget();
  }
}

void Snapshot::Forget() {
  file_.Refresh(true);
  ForgetTables();
}

void Snapshot::ForgetTables() {
  catalogue_.clear();
  images_.clear();
  mark_.reset();
}

Snapshot::Images Snapshot::TakeImages() {
  Images images = std::move(images_);
  ForgetTables();
  return images;
}

bool Snapshot::IsMended(TableImage& image, const PageImages& changed) {
  try {
    return image.Mend(file_, changed);
  } catch (const FileProblem&) {
    // The change is made, whatever meets the reading: the next reading tells of it.
    return false;
  }
}

void Snapshot::MendImages(Images&& images, const PageImages& changed) {
  for (auto& [definition, image] : images) {
    // Rows that somebody still reads stay as they were.
    if (image.use_count() == 1 && IsMended(*image, changed)) {
      images_[definition] = std::move(image);
    }
  }
}

void Snapshot::ForgetIfChanged() {
  if (!is_held_ && file_.Refresh()) {
    ForgetTables();
  }
}

const std::vector<CatalogueEntry>& Snapshot::Tables() {
  ForgetIfChanged();
  if (catalogue_.empty()) {
    catalogue_ = ReadSteadily([&] { return ReadCatalogue(file_); });
  }
  return catalogue_;
}

PageNumber Snapshot::DefinitionOf(std::string_view name) {
  const CatalogueEntry* entry = FindTable(Tables(), name);
  if (entry == nullptr) {
    throw StoreProblem(Refusal::NoTable, std::string(name));
  }
  return entry->Definition;
}

std::shared_ptr<TableImage> Snapshot::Table(std::string_view name) {
  const PageNumber definition = DefinitionOf(name);
  if (!is_held_ && !file_.IsCurrent(definition)) {
    Forget();
  }
  const auto known = images_.find(definition);
  if (known != images_.end()) {
    return known->second;
  }
  auto image = ReadSteadily([&] { return std::make_shared<TableImage>(file_, definition); });
  images_[definition] = image;
  return image;
}

std::shared_ptr<const void> Snapshot::MarkOf(std::string_view name) {
  Table(name);
  if (!mark_) {
    mark_ = std::make_shared<const char>();
  }
  return mark_;
}

}  // namespace veyra::access
