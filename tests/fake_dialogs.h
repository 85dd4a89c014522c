#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "logic/dialogs.h"

namespace veyra {

/// The buttons, the icon and the text of a box, on one line: "[OK/Cancel Question] Reservation
/// ...".
inline std::string Rendered(const Message& message) {
  constexpr const char* kButtons[] = {"OK", "OK/Cancel", "Yes/No", "Continue/Undo/Keep"};
  constexpr const char* kIcons[] = {"", " Critical", " Question", " Exclamation", " Information"};
  return std::string("[") + kButtons[static_cast<int>(message.Choice)] +
         kIcons[static_cast<int>(message.Sign)] + "] " + message.Text.English();
}

/// An operator who answers as told beforehand. Every box is kept; a question for which no answer
/// stands ready fails the test.
class FakeDialogs : public Dialogs {
 public:
  void AnswerNext(Answer answer) { answers_.push_back(answer); }
  void TypeNext(const std::string& text) { texts_.push_back(text); }

  /// Presses the button that ends the next long action early, once it has reported so many steps.
  void EndEarlyAfter(std::int64_t steps) { end_after_ = steps; }

  /// The answer of every action done in part for which no other stands ready.
  void AnswerHalts(Answer answer) { halt_answer_ = answer; }

  /// Called before each box is answered: what the operator may see behind it.
  std::function<void()> WhileShown;

  /// All boxes so far, rendered.
  const std::vector<std::string>& Boxes() const { return boxes_; }

  /// The only box so far, rendered; anything but one fails the test.
  std::string OnlyBox() const {
    EXPECT_EQ(1U, boxes_.size());
    return boxes_.empty() ? "" : boxes_.front();
  }

  /// The last box, whole.
  const Message& LastMessage() const { return last_message_; }

  const std::vector<std::string>& ProgressBoxes() const { return progress_boxes_; }

  Answer MsgBox(const Message& message) override {
    boxes_.push_back(Rendered(message));
    last_message_ = message;
    if (WhileShown) {
      WhileShown();
    }
    return message.Choice == Buttons::Ok ? Answer::Ok : TakeAnswer(message);
  }

  std::string InputBox(const Phrase& prompt, const Phrase& title,
                       const std::string& default_text) override {
    boxes_.push_back("[Input " + title.English() + "] " + prompt.English() + " (" + default_text +
                     ")");
    if (texts_.empty()) {
      ADD_FAILURE() << "unexpected request for a text: " << prompt;
      return {};
    }
    const std::string text = texts_.front();
    texts_.pop_front();
    return text;
  }

  std::unique_ptr<Progress> StartProgress(const Phrase& text, EarlyEnd early_end) override {
    progress_boxes_.push_back(text.English());
    if (early_end == EarlyEnd::None) {
      return std::make_unique<FakeProgress>(std::nullopt);
    }
    return std::make_unique<FakeProgress>(std::exchange(end_after_, std::nullopt));
  }

 private:
  class FakeProgress : public Progress {
   public:
    explicit FakeProgress(std::optional<std::int64_t> end_after) : end_after_(end_after) {}
    bool Report(std::int64_t done, std::int64_t) override {
      return !end_after_ || done < *end_after_;
    }

   private:
    std::optional<std::int64_t> end_after_;
  };

  static Answer Refusal(Buttons choice) {
    switch (choice) {
      case Buttons::OkCancel:
        return Answer::Cancel;
      case Buttons::ContinueUndoKeep:
        return Answer::Keep;
      default:
        return Answer::No;
    }
  }

  Answer TakeAnswer(const Message& message) {
    if (answers_.empty() && halt_answer_ && message.Choice == Buttons::ContinueUndoKeep) {
      return *halt_answer_;
    }
    if (answers_.empty()) {
      ADD_FAILURE() << "unexpected question: " << message.Text;
      return Refusal(message.Choice);
    }
    const Answer answer = answers_.front();
    answers_.pop_front();
    return answer;
  }

  std::deque<Answer> answers_;
  std::optional<Answer> halt_answer_;
  std::deque<std::string> texts_;
  std::optional<std::int64_t> end_after_;
  std::vector<std::string> boxes_;
  std::vector<std::string> progress_boxes_;
  Message last_message_;
};

}  // namespace veyra
