#pragma once

#include <string>
#include <string_view>

namespace veyra {

/// A name as it is put into a line of text that is shown. One that holds signs which turn the
/// direction of writing is set apart from what stands around it, so that these turn nothing but the
/// name; every other comes back as it is. For showing only, never to be stored or compared.
std::string ShownName(std::string_view name);

}  // namespace veyra
