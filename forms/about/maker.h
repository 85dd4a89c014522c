#pragma once

#include <array>
#include <cstddef>

namespace veyra {

/// The texts of the about box, by the index of their label labAbout(0) to labAbout(5). The maker
/// sets name, address, telephone and site here; what stands here now are placeholders.
inline constexpr std::array<const char*, 6> kAboutLabels = {
    "Veyra Calendar     Scheduler",  // five blanks
    "Name of the maker",
    "Street and number, town, country",
    "Telephone number of the maker",
    "https://www.example.com/",
    "Version 1.0.5",
};

/// The label that opens the maker's site when clicked.
inline constexpr std::size_t kLinkLabel = 4;

}  // namespace veyra
