#pragma once

#include <optional>
#include <string>

namespace veyra {

/// The title of every box that is given no title of its own.
inline constexpr const char* kApplicationTitle = "Veyra Calendar";

/// The line break within a message.
inline constexpr const char* kLineBreak = "\r\n";

enum class Buttons { Ok, OkCancel, YesNo };
enum class Icon { None, Critical, Question, Exclamation, Information };
enum class Answer { Ok, Cancel, Yes, No };

/// A modal box. All of it is part of the design. The first button is the default one; closing the
/// box in another way than by a button answers Ok, Cancel or No.
struct Message {
  std::string Text;
  Buttons Choice = Buttons::Ok;
  Icon Sign = Icon::None;
  std::string Title = kApplicationTitle;
};

/// Asks the operator. Handed in, so that a test can answer.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

  /// Shows the box until the operator has answered it.
  virtual Answer MsgBox(const Message& message) = 0;

  /// Asks for a line of text, `default_text` standing there to be changed. Empty when cancelled.
  virtual std::string InputBox(const std::string& prompt, const std::string& title,
                               const std::string& default_text) = 0;
};

}  // namespace veyra
