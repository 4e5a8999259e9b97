// Any reply gives a text; a reply that reports success or is an object is introduced, any other stays as it
// is.

#include "FuzzedText.h"

#include "Services/Lightroom/Bridge/LightroomReply.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace KelvaLR {

namespace {

using Fuzzing::require;

void interpretReply(const QString &reply)
{
    const QString text = formattedPluginResponse(reply);
    const QJsonDocument document = QJsonDocument::fromJson(reply.toUtf8());
    require(document.isObject() ? text.startsWith(QLatin1StringView("Lightroom Classic: ")) : text == reply);
    require(!pluginResponseSucceeded(reply) || document.isObject());
    require(formatStatusPayload(document.object()).has_value() == pluginResponseSucceeded(reply));
    if (const auto tidied = formattedAdjustedSliderMessage(reply)) {
        require(tidied->startsWith(QLatin1StringView("Adjusted ")) && tidied->endsWith(u'.'));
    }
}

} // namespace

} // namespace KelvaLR

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    for (const QString &text : KelvaLR::Fuzzing::textsOf(data, size)) {
        KelvaLR::interpretReply(text);
    }
    return 0;
}
