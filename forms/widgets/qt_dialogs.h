#pragma once

#include <memory>
#include <string>

#include "logic/dialogs.h"

namespace veyra {

/// Message boxes and input boxes over the window that is in use.
class QtDialogs : public Dialogs {
 public:
  Answer MsgBox(const Message& message) override;
  std::string InputBox(const Phrase& prompt, const Phrase& title,
                       const std::string& default_text) override;
  std::unique_ptr<Progress> StartProgress(const Phrase& text, EarlyEnd early_end) override;
};

}  // namespace veyra
