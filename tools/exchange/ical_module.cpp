#include "tools/exchange/ical_codec.h"
#include "tools/exchange/ical_read.h"
#include "tools/exchange/ical_write.h"

extern "C" const veyra::IcalCodec* VeyraIcalCodec() {
  static const veyra::IcalCodec codec{veyra::IcalHead, veyra::IcalOf, veyra::IcalEnd,
                                      veyra::BookingsOfIcal};
  return &codec;
}
