#include "Services/Lightroom/Language/LightroomPhrases.h"

#include "Support/PhraseTable.h"
#include "Support/TextTrimming.h"

namespace KelvaLR {

namespace {

constexpr PhraseList<2> importSubjects{u"folder", u"photos"};

constexpr PhraseList<5> importMarkers{
    u" from folder ", u" from the folder ", u" from ", u" in folder ", u" in the folder ",
};

constexpr PhraseList<10> presetMarkers{
    u"apply preset ",
    u"apply the preset ",
    u"use preset ",
    u"use the preset ",
    u"set preset ",
    u"set the preset ",
    u"apply preset called ",
    u"apply preset named ",
    u"apply lightroom preset ",
    u"apply the lightroom preset ",
};

} // namespace

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
