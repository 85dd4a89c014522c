#pragma once

#include <QStringList>
#include <QTranslator>
#include <memory>

namespace veyra {

/// Has the program's phrases shown in the first of these languages that it knows, for as long as
/// the object lives. They are named as "de-AT" is, the one liked best in front. English needs
/// nothing and gets nothing; neither does it where none is known.
std::unique_ptr<QTranslator> InstallTranslation(const QStringList& languages);

}  // namespace veyra
