#include "tools/companion/file_format.h"

#include <CLI/CLI.hpp>
#include <map>

#include "data/errors.h"
#include "data/text.h"
#include "tools/companion/parser_words.h"

namespace veyra {

void AddFormat(CLI::App& app, std::optional<FileFormat>& format) {
  const std::map<std::string, FileFormat> formats = {{"ics", FileFormat::Ical},
                                                     {"csv", FileFormat::Csv}};
  app.add_option("--format", format,
                 Meaning(Phrase::Tr("ics or csv; else the end of FILE's name says which")))
      ->type_name("FORMAT")
      ->transform(CLI::CheckedTransformer(formats).description(""));
}

FileFormat FormatOfName(const std::string& file) {
  const std::string upper = UpperCase(file);
  if (upper.ends_with(".ICS")) {
    return FileFormat::Ical;
  }
  if (upper.ends_with(".CSV")) {
    return FileFormat::Csv;
  }
  throw ValueError({file, Phrase::Tr("The name ends neither in .ics nor in .csv."),
                    Phrase::Tr("Say with --format which of the two the file is.")});
}

}  // namespace veyra
