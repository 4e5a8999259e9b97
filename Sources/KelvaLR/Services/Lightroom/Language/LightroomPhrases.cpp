#include "Services/Lightroom/Language/LightroomPhrases.h"

#include "Services/Lightroom/Language/CommandTables.h"
#include "Support/TextTrimming.h"

namespace KelvaLR {

using namespace CommandTables;

std::optional<QString> importFolderPath(const LowercasedText &request)
{
    const QString &lower = request.lower();
    if (!lower.contains(u"import") || !containsAny(lower, importSubjects)) {
        return std::nullopt;
    }
    for (const QStringView marker : importMarkers) {
        const qsizetype at = lower.lastIndexOf(marker);
        if (at < 0) {
            continue;
        }
        QString path = stripMatchingQuotes(trimmedPunctuation(request.textFrom(at + marker.size())));
        if (!path.isEmpty()) {
            return path;
        }
    }
    return std::nullopt;
}

std::optional<QString> nameBehindPresetMarker(const LowercasedText &request,
                                              QString (*cleanName)(const QString &))
{
    for (const QStringView marker : presetMarkers) {
        const qsizetype at = request.lower().indexOf(marker);
        if (at < 0) {
            continue;
        }
        QString name = cleanName(request.textFrom(at + marker.size()));
        if (!name.isEmpty()) {
            return name;
        }
    }
    return std::nullopt;
}

std::optional<QString> withoutPrefix(const LowercasedText &text, QStringView prefix)
{
    if (!text.lower().startsWith(prefix)) {
        return std::nullopt;
    }
    return text.textFrom(prefix.size());
}

std::optional<QString> withoutSuffix(const LowercasedText &text, QStringView suffix)
{
    if (!text.lower().endsWith(suffix)) {
        return std::nullopt;
    }
    return text.textBetween(0, text.lower().size() - suffix.size());
}

} // namespace KelvaLR
