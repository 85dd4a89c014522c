#pragma once

namespace veyra {

/// Takes from this process, for the rest of its life, all that the reader of an open file can do
/// without: no file can be opened or made any more, no connection, no program started, no other
/// process reached; the kernel answers such calls with EPERM. What is open stays open. Returns
/// false, having changed nothing, where the kernel knows no such filter ("seccomp") or the
/// processor is another than x86-64 and ARM64. REQUIRES: this process has one thread.
bool ConfineThisProcess();

}  // namespace veyra
