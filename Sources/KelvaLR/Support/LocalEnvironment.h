#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// Values from outside the program: environment variables, and for local development files named
/// `.env.local`. Nothing is kept: every look-up reads the environment and the files again. Any thread.
namespace KelvaLR::LocalEnvironment {

/// The value of a variable, never empty: from the process's environment as it is, else from the first
/// candidate file that has one.
[[nodiscard]] std::optional<QString> value(const QString &name);

/// The files that are looked into, in this order and each once: in the working directory, in the parent of
/// the executable's folder, and in that folder.
[[nodiscard]] QStringList candidateFiles(const QString &workingDirectory, const QString &executableFolder);

/// The value of the first line "NAME=value" whose name matches exactly, without the quotes at its ends; never
/// empty. A file that is no regular file, over 1 MiB or not UTF-8 has no values.
[[nodiscard]] std::optional<QString> valueInFile(const QString &path, QStringView name);

/// The same for the text of a file.
[[nodiscard]] std::optional<QString> valueInText(QStringView text, QStringView name);

} // namespace KelvaLR::LocalEnvironment
