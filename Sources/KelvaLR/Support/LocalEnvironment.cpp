#include "Support/LocalEnvironment.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <QStringTokenizer>

namespace KelvaLR::LocalEnvironment {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView fileName(".env.local");
constexpr qint64 largestFile =
    qint64{1024} * 1024; ///< a list of variables; anything longer is something else

std::optional<QString> unlessEmpty(const QString &text)
{
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

QStringView withoutQuotesAtTheEnds(QStringView text)
{
    const auto isQuote = [](QChar c) { return c == u'"' || c == u'\''; };
    while (!text.isEmpty() && isQuote(text.front())) {
        text = text.sliced(1);
    }
    while (!text.isEmpty() && isQuote(text.back())) {
        text.chop(1);
    }
    return text;
}

} // namespace

std::optional<QString> value(const QString &name)
{
    if (QString set = qEnvironmentVariable(name.toUtf8().constData()); !set.isEmpty()) {
        return set;
    }
    for (const QString &file : candidateFiles(QDir::currentPath(), QCoreApplication::applicationDirPath())) {
        if (const std::optional<QString> found = valueInFile(file, name)) {
            return found;
        }
    }
    return std::nullopt;
}

QStringList candidateFiles(const QString &workingDirectory, const QString &executableFolder)
{
    QStringList files;
    const QString parentFolder = executableFolder + "/.."_L1;
    for (const QString &folder : {workingDirectory, parentFolder, executableFolder}) {
        files.append(QDir::cleanPath(folder + u'/' + fileName));
    }
    files.removeDuplicates();
    return files;
}

std::optional<QString> valueInFile(const QString &path, QStringView name)
{
    // Opening a pipe would wait for its writer.
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QFile::ReadOnly)) {
        return std::nullopt;
    }
    const QByteArray bytes = file.read(largestFile + 1);
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder.decode(bytes);
    if (bytes.size() > largestFile || decoder.hasError()) {
        return std::nullopt;
    }
    return valueInText(text, name);
}

std::optional<QString> valueInText(QStringView text, QStringView name)
{
    for (const QStringView rawLine : qTokenize(text, u'\n')) {
        const QStringView line = rawLine.trimmed();
        const auto equals = line.indexOf(u'=');
        if (line.startsWith(u'#') || equals < 0 || line.first(equals) != name) {
            continue;
        }
        return unlessEmpty(withoutQuotesAtTheEnds(line.sliced(equals + 1)).toString());
    }
    return std::nullopt;
}

} // namespace KelvaLR::LocalEnvironment
