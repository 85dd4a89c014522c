#pragma once

namespace veyra {

/// Whether the address sanitizer is compiled in. It reserves far more address space than any limit
/// would leave it, and looks at files and processes when it reports.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kIsSanitized = true;
#elif defined(__has_feature)
constexpr bool kIsSanitized = __has_feature(address_sanitizer);
#else
constexpr bool kIsSanitized = false;
#endif

}  // namespace veyra
