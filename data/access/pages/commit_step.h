#pragma once

#include <functional>

namespace veyra::access {

/// The steps of writing a change, in their order. After JournalFlushed the change is made.
enum class CommitStep { JournalWritten, JournalFlushed, PagesWritten, PagesFlushed, Done };

/// Called after each step.
using CommitObserver = std::function<void(CommitStep)>;

}  // namespace veyra::access
