#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "data/phrase.h"

namespace veyra {

/// The title of every box that is given no title of its own.
inline constexpr const char* kApplicationTitle = "Veyra Calendar";

/// The line break within a message.
inline constexpr const char* kLineBreak = "\r\n";

/// The buttons of a box, in their order.
enum class Buttons {
  Ok,
  OkCancel,
  YesNo,
  ContinueUndoKeep,  ///< "Continue", "Undo", "Keep": what becomes of an action done in part.
};
enum class Icon { None, Critical, Question, Exclamation, Information };
enum class Answer { Ok, Cancel, Yes, No, Continue, Undo, Keep };

/// A modal box. All of it but Details and Default is part of the design. Closing the box in another
/// way than by a button answers Ok, Cancel, No or Keep.
struct Message {
  Phrase Text;
  Buttons Choice = Buttons::Ok;
  Icon Sign = Icon::None;
  Phrase Title = kApplicationTitle;
  Phrase Details = {};  ///< Shown smaller below the text: what is about to be touched.
  std::optional<Answer> Default = {};  ///< Whom the Enter key answers; nothing for the first.
};

/// Tells the operator how far a long action has come. Nothing is shown in its first half second, so
/// that a short one passes unseen. The box goes when the object does.
class Progress {
 public:
  virtual ~Progress() = default;

  /// `done` steps of `total` are done. Keeps the screen alive; returns false once the operator has
  /// pressed the button that ends the action early.
  virtual bool Report(std::int64_t done, std::int64_t total) = 0;
};

/// The button with which the operator ends a long action early: "Cancel" where nothing has been
/// changed by then, "Stop" where what was done until then remains to be decided on.
enum class EarlyEnd { None, Cancel, Stop };

/// Asks the operator. Handed in, so that a test can answer.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

  /// Shows the box until the operator has answered it.
  virtual Answer MsgBox(const Message& message) = 0;

  /// Asks for a line of text, `default_text` standing there to be changed. Empty when cancelled.
  virtual std::string InputBox(const Phrase& prompt, const Phrase& title,
                               const std::string& default_text) = 0;

  /// Begins to show the progress of an action, which `text` names.
  virtual std::unique_ptr<Progress> StartProgress(const Phrase& text, EarlyEnd early_end) = 0;
};

}  // namespace veyra
