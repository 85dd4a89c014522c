#pragma once

#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "logic/dialogs.h"

namespace veyra::soak {

/// Answers every box at random, and keeps what was said since the last gesture.
class MonkeyDialogs : public Dialogs {
 public:
  explicit MonkeyDialogs(std::mt19937& random) : random_(random) {}

  struct Box {
    std::string Text;
    Answer Given = Answer::Ok;
  };

  std::vector<Box> TakeBoxes() { return std::exchange(boxes_, {}); }
  const std::string& TypedText() const { return typed_; }

  /// The text that the next request for one is answered with.
  void TypeNext(std::string text) { typed_ = std::move(text); }

  Answer MsgBox(const Message& message) override {
    boxes_.push_back({message.Text.English(), AnswerTo(message.Choice)});
    return boxes_.back().Given;
  }

  std::string InputBox(const Phrase&, const Phrase&, const std::string&) override { return typed_; }

  std::unique_ptr<Progress> StartProgress(const Phrase&, EarlyEnd) override {
    return std::make_unique<Unseen>();
  }

 private:
  class Unseen : public Progress {
   public:
    bool Report(std::int64_t, std::int64_t) override { return true; }
  };

  Answer AnswerTo(Buttons choice) {
    const bool agrees = random_() % 5 < 3;
    switch (choice) {
      case Buttons::Ok:
        return Answer::Ok;
      case Buttons::OkCancel:
        return agrees ? Answer::Ok : Answer::Cancel;
      case Buttons::YesNo:
        return agrees ? Answer::Yes : Answer::No;
      default:
        return Answer::Keep;
    }
  }

  std::mt19937& random_;
  std::vector<Box> boxes_;
  std::string typed_;
};

}  // namespace veyra::soak
