#include "tools/exchange/ical_codec.h"
#include "tools/exchange/ical_read.h"
#include "tools/exchange/ical_write.h"

namespace {

veyra::IcalAnswer Read(const std::string& text, const veyra::DayRange& days,
                       const std::vector<std::string>& facilities) {
  try {
    return {veyra::BookingsOfIcal(text, days, facilities), std::nullopt};
  } catch (const veyra::ValueError& error) {
    return {{}, error.report()};
  }
}

}  // namespace

extern "C" [[gnu::visibility("default")]] const veyra::IcalCodec* VeyraIcalCodec() {
  static const veyra::IcalCodec codec{veyra::IcalHead, veyra::IcalOf, veyra::IcalEnd, Read};
  return &codec;
}
