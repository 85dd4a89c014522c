# Makes tables in C++ of translations/veyra_*.ts, for a program that has no Qt:
#
#   cmake -DFROM=translations -DTO=translation_tables.cpp -P cmake/translation_tables.cmake
#
# What is not finished is left out, and stays English.

set(between "[ \\n]*")
set(quote "&quot;")
set(tables "")
set(list "")
file(GLOB files ${FROM}/veyra_*.ts)
foreach(file IN LISTS files)
  string(REGEX REPLACE "^.*/veyra_(.*)\\.ts$" "\\1" language ${file})
  # From here on a line break is an entry's beginning, and a quotation mark stands around its texts.
  file(READ ${file} text)
  string(REPLACE "\\" "\\\\" text "${text}")
  string(REPLACE "\n" "\\n" text "${text}")
  string(REPLACE "\"" "${quote}" text "${text}")
  string(REGEX REPLACE
    "<message>${between}<source>([^<]*)</source>${between}<translation>([^<]+)</translation>${between}</message>"
    "\n    {\"\\1\",\n     \"\\2\"}," text "${text}")
  string(FIND "${text}" "\n" first)
  string(SUBSTRING "${text}" ${first} -1 text)
  string(REGEX REPLACE "\"},[^\n]*" "\"}," text "${text}")
  string(REPLACE "${quote}" "\\\"" text "${text}")
  string(REPLACE "&apos;" "'" text "${text}")
  string(REPLACE "&lt;" "<" text "${text}")
  string(REPLACE "&gt;" ">" text "${text}")
  string(REPLACE "&amp;" "&" text "${text}")
  string(APPEND tables "constexpr TranslatedText k_${language}[] = {${text}\n};\n\n")
  string(APPEND list "    {\"${language}\", k_${language}},\n")
endforeach()

file(WRITE ${TO} "// Made by cmake/translation_tables.cmake.\n\
#include \"tools/translation.h\"\n\n\
namespace veyra {\nnamespace {\n\n${tables}\
const std::vector<TranslationTable> kTables = {\n${list}};\n\n\
}  // namespace\n\n\
const std::vector<TranslationTable>& BuiltInTranslations() {\n  return kTables;\n}\n\n\
}  // namespace veyra\n")
