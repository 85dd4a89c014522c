#include "app/translation.h"

#include <QCoreApplication>

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

}  // namespace veyra
