#include "tests/faults/power_cut.h"

#include <algorithm>

namespace veyra::faults {

namespace {

constexpr std::size_t kSector = 512;

using Kind = Change::Kind;

std::size_t SectorsOf(const Change& change) {
  const std::size_t first = change.Offset / kSector;
  const std::size_t last = (change.Offset + change.Bytes.size() + kSector - 1) / kSector;
  return change.What == Kind::Write ? last - first : 0;
}

bool IsOfNames(const Change& change) {
  return change.What == Kind::Create || change.What == Kind::Link || change.What == Kind::Unlink ||
         change.What == Kind::Rename;
}

void Overwrite(std::string& bytes, const Change& change, const std::vector<bool>& sectors) {
  const std::size_t first = change.Offset / kSector;
  const std::size_t end = change.Offset + change.Bytes.size();
  for (std::size_t at = change.Offset; at < end;) {
    const std::size_t next = std::min((at / kSector + 1) * kSector, end);
    if (sectors.empty() || sectors[at / kSector - first]) {
      bytes.resize(std::max(bytes.size(), next));
      std::copy_n(change.Bytes.begin() + static_cast<std::ptrdiff_t>(at - change.Offset), next - at,
                  bytes.begin() + static_cast<std::ptrdiff_t>(at));
    }
    at = next;
  }
}

std::size_t HashOf(const Image& image) {
  std::size_t sum = image.size();
  for (const auto& [name, bytes] : image) {
    sum = sum * 31 + std::hash<std::string>()(name);
    sum = sum * 31 + std::hash<std::string>()(bytes);
  }
  return sum;
}

}  // namespace

PowerCut::PowerCut(const std::vector<File>& first) {
  for (const File& file : first) {
    const std::uint64_t number =
        own_numbers_.try_emplace(file.Number, ++last_number_).first->second;
    flushed_.Names[file.Name] = number;
    flushed_.Bytes[number] = file.Bytes;
  }
}

Change PowerCut::WithOwnNumber(Change change) {
  if (change.What == Kind::Create) {
    own_numbers_.erase(change.File);
  }
  change.File = own_numbers_.try_emplace(change.File, ++last_number_).first->second;
  return change;
}

void PowerCut::Apply(const Change& change, const Fate& fate, State& state) {
  if (!fate.Reached) {
    return;
  }
  std::string& bytes = state.Bytes[change.File];
  switch (change.What) {
    case Kind::Create:
      state.Names[change.Name] = change.File;
      break;
    case Kind::Link:
      state.Names[change.NewName] = change.File;
      break;
    case Kind::Unlink:
      state.Names.erase(change.Name);
      break;
    case Kind::Rename:
      state.Names.erase(change.Name);
      state.Names[change.NewName] = change.File;
      break;
    case Kind::Write:
      if (fate.OnlyLength) {
        bytes.resize(std::max(bytes.size(), change.Offset + change.Bytes.size()));
      } else {
        Overwrite(bytes, change, fate.Sectors);
      }
      break;
    case Kind::Truncate:
      bytes.resize(change.Offset);
      break;
    default:
      break;
  }
}

void PowerCut::Happen(const Change& happened) {
  if (happened.What == Kind::Mark || happened.What == Kind::Made) {
    return;
  }
  const Change change = WithOwnNumber(happened);
  if (change.What != Kind::Sync && change.What != Kind::SyncFolder) {
    pending_.push_back(change);
    return;
  }
  const auto is_flushed = [&](const Change& one) {
    return change.What == Kind::SyncFolder ? IsOfNames(one)
                                           : !IsOfNames(one) && one.File == change.File;
  };
  for (const Change& one : pending_) {
    if (is_flushed(one)) {
      Apply(one, {}, flushed_);
    }
  }
  std::erase_if(pending_, is_flushed);
}

Image PowerCut::ImageOf(const Fates& fates) const {
  State state = flushed_;
  for (std::size_t i = 0; i < pending_.size(); ++i) {
    Apply(pending_[i], fates[i], state);
  }
  Image image;
  for (const auto& [name, file] : state.Names) {
    image[name] = state.Bytes[file];
  }
  return image;
}

std::vector<PowerCut::Fates> PowerCut::Systematic() const {
  const std::size_t count = pending_.size();
  const Fates all(count);
  const Fates none(count, Fate{.Reached = false});
  std::vector<Fates> found{none, all};
  for (std::size_t i = 0; i < count; ++i) {
    found.push_back(all);
    found.back()[i].Reached = false;
    found.push_back(none);
    found.back()[i].Reached = true;
  }
  if (count == 0) {
    return found;
  }
  // The last write is the one that the power cut finds at work.
  const std::size_t last = count - 1;
  const std::size_t sectors = SectorsOf(pending_[last]);
  for (std::size_t reached = 1; reached < sectors; ++reached) {
    found.push_back(all);
    found.back()[last].Sectors.assign(sectors, false);
    std::fill_n(found.back()[last].Sectors.begin(), reached, true);
    found.push_back(found.back());
    found.back()[last].Sectors.flip();
  }
  if (sectors > 0) {
    found.push_back(all);
    found.back()[last].OnlyLength = true;
  }
  return found;
}

PowerCut::Fates PowerCut::Drawn() {
  Fates fates(pending_.size());
  for (std::size_t i = 0; i < fates.size(); ++i) {
    fates[i].Reached = random_() % 2 == 0;
    fates[i].OnlyLength = random_() % 8 == 0;
    if (random_() % 2 == 0) {
      for (std::size_t left = SectorsOf(pending_[i]); left > 0; --left) {
        fates[i].Sectors.push_back(random_() % 2 == 0);
      }
    }
  }
  return fates;
}

void PowerCut::ForEachImage(std::size_t saved, double share,
                            const std::function<void(const Image&)>& visit) {
  constexpr int kDrawn = 4;
  std::vector<Fates> wanted = Systematic();
  for (int i = 0; i < kDrawn && !pending_.empty(); ++i) {
    wanted.push_back(Drawn());
  }
  std::uniform_real_distribution<double> lot(0, 1);
  for (const Fates& fates : wanted) {
    if (lot(random_) >= share) {
      continue;
    }
    const Image image = ImageOf(fates);
    if (seen_.emplace(saved, HashOf(image)).second) {
      visit(image);
    }
  }
}

}  // namespace veyra::faults
