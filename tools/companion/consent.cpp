#include "tools/companion/consent.h"

#include <istream>
#include <ostream>

namespace veyra {

bool IsConsented(const std::string& question, Streams& streams) {
  streams.Err << question << " [y/N] " << std::flush;
  std::string answer;
  std::getline(streams.In, answer);
  return answer == "y" || answer == "Y" || answer == "yes" || answer == "Yes";
}

}  // namespace veyra
