#pragma once

#include <QStringList>
#include <QTranslator>
#include <filesystem>
#include <memory>

namespace veyra {

/// Has the program's phrases shown in the first of these languages that it knows, for as long as
/// the object lives. They are named as "de-AT" is, the one liked best in front. English needs
/// nothing and gets nothing; neither does it where none is known.
std::unique_ptr<QTranslator> InstallTranslation(const QStringList& languages);

/// The help file in `folder`: that of the language in which the program's phrases are shown, if it
/// is there, else the English one, there or not. A translation says what its own is called.
std::filesystem::path HelpFileIn(const std::filesystem::path& folder);

}  // namespace veyra
