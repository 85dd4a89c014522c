#include "app/translation.h"

#include <QCoreApplication>
#include <system_error>

#include "forms/widgets/qt_text.h"

namespace veyra {
namespace {

bool IsEnglish(const QString& language) {
  return language.section(QLatin1Char('-'), 0, 0) == QLatin1String("en");
}

/// Of a country's language, "de_AT", the language is enough.
QString FileOf(QString language) {
  return QStringLiteral("veyra_") + language.replace(QLatin1Char('-'), QLatin1Char('_'));
}

}  // namespace

std::unique_ptr<QTranslator> InstallTranslation(const QStringList& languages) {
  auto translation = std::make_unique<QTranslator>();
  for (const QString& language : languages) {
    if (IsEnglish(language)) {
      break;
    }
    if (translation->load(FileOf(language), QStringLiteral(":/translations"))) {
      QCoreApplication::installTranslator(translation.get());
      return translation;
    }
  }
  return nullptr;
}

std::filesystem::path HelpFileIn(const std::filesystem::path& folder) {
  const Phrase name = Phrase::Tr("VeyraCalendar.chm");
  const std::filesystem::path own = folder / ToUtf8(ToQString(name));
  std::error_code unknown;
  return std::filesystem::exists(own, unknown) ? own : folder / name.English();
}

}  // namespace veyra
