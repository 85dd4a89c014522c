#include "logic/time_taken.h"

#include <string>

#include "data/shown_name.h"
#include "logic/slots.h"

namespace veyra::modRes {

Message TimesTaken(const Session& session, const TimeTakenError& taken) {
  std::string lines;
  for (const TakenTime& time : taken.Taken()) {
    const SlotRange range{.First = SlotOf(Value(time.From)), .Last = SlotOf(Value(time.To))};
    lines += (lines.empty() ? "" : kLineBreak) + TimesLabel(session.SlotLabel, range) + " " +
             ShownName(time.Name);
  }
  return {.Text = Phrase::Tr("Nothing was booked: somebody else has booked these times meanwhile."),
          .Sign = Icon::Exclamation,
          .Details = lines};
}

}  // namespace veyra::modRes
