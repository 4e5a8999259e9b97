#include "Services/Lightroom/LightroomService.h"

#include "Services/Lightroom/Bridge/LightroomReply.h"
#include "Services/Lightroom/LightroomOperation.h"
#include "Services/Lightroom/LightroomSentences.h"
#include "Support/TextTrimming.h"

#include <QFileInfo>
#include <QPointer>

#include <array>
#include <utility>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

struct FlagKeyRow
{
    QLatin1StringView type;
    QLatin1StringView key;
};

/// Lightroom's shortcuts for the flags.
constexpr std::array<FlagKeyRow, 3> flagKeys{{
    {QLatin1StringView("pick"), QLatin1StringView("p")},
    {QLatin1StringView("reject"), QLatin1StringView("x")},
    {QLatin1StringView("unflag"), QLatin1StringView("u")},
}};

WithoutPlugin flagWithoutPlugin(const QString &type)
{
    const QString lowerType = type.toLower();
    for (const FlagKeyRow &row : flagKeys) {
        if (lowerType == row.type) {
            return KeyFallback{.kind = KeyFallbackKind::flag, .key = row.key, .subject = type};
        }
    }
    return QString("Unsupported flag type: "_L1 + type);
}

} // namespace

QCoro::Task<QString> LightroomService::adjustSlider(ParsedLightroomSliderCommand change,
                                                    QStringList targetPaths)
{
    return perform({.command = {.action = LightroomPluginAction::adjustSlider,
                                .slider = change.sliderName,
                                .value = change.value,
                                .relative = change.relative,
                                .targetPaths = std::move(targetPaths)},
                    .withoutPlugin = NotConnected::sliderNotChanged(change.sliderName)});
}

QCoro::Task<QString> LightroomService::adjustSliders(QString adjustments, QStringList targetPaths)
{
    return perform({.command = {.action = LightroomPluginAction::adjustSliders,
                                .adjustments = adjustments,
                                .targetPaths = std::move(targetPaths)},
                    .withoutPlugin = SliderFallback{.adjustments = adjustments}});
}

QCoro::Task<QString> LightroomService::applyPreset(QString name, QStringList targetPaths)
{
    const QString presetName = trimmedWhitespace(name);
    if (presetName.isEmpty()) {
        co_return u"No Lightroom preset name was provided."_s;
    }
    co_return co_await perform({.command = {.action = LightroomPluginAction::applyPreset,
                                            .presetName = presetName,
                                            .targetPaths = std::move(targetPaths)},
                                .withoutPlugin = NotConnected::presetNotApplied(presetName)});
}

QCoro::Task<QString> LightroomService::importFolder(QString path)
{
    const QString folder = trimmedWhitespace(path);
    if (folder.isEmpty()) {
        co_return u"No folder path was provided."_s;
    }
    if (!QFileInfo(folder).isDir()) {
        co_return "Folder not found: "_L1 + folder;
    }
    co_return co_await perform(
        {.command = {.action = LightroomPluginAction::importFolder, .folderPath = folder},
         .withoutPlugin = NotConnected::photosNotImported()});
}

QCoro::Task<QString> LightroomService::cullPhoto(QString type, QStringList targetPaths)
{
    return perform({.command = {.action = LightroomPluginAction::cull,
                                .type = type,
                                .targetPaths = std::move(targetPaths)},
                    .withoutPlugin = flagWithoutPlugin(type)});
}

QCoro::Task<QString> LightroomService::setRating(qint64 value, QStringList targetPaths)
{
    const QString text = QString::number(value);
    return perform(
        {.command = {.action = LightroomPluginAction::rating,
                     .value = double(value),
                     .targetPaths = std::move(targetPaths)},
         .withoutPlugin = KeyFallback{.kind = KeyFallbackKind::rating, .key = text, .subject = text}});
}

QCoro::Task<QString> LightroomService::navigate(QString direction)
{
    const bool isBack = direction.toLower() == "prev"_L1;
    co_return co_await perform(
        {.command = {.action = isBack ? LightroomPluginAction::prev : LightroomPluginAction::next},
         .withoutPlugin = KeyFallback{.kind = KeyFallbackKind::navigation,
                                      .key = isBack ? u"left"_s : u"right"_s,
                                      .subject = u"navigation"_s}});
}

QCoro::Task<QString> LightroomService::getStatus()
{
    return perform({.command = {.action = LightroomPluginAction::getStatus},
                    .withoutPlugin = NotConnected::howToConnect(),
                    .afterSuccess = AfterSuccess::stay});
}

/// The sequence of every operation: make sure that the plug-in answers, send, word the reply and bring
/// Lightroom to the front; or take the road without the plug-in.
QCoro::Task<QString> LightroomService::perform(LightroomOperation operation)
{
    const QPointer<LightroomService> self(this);
    std::optional<QString> reply;
    if (m_isPluginConnected || co_await ping(AutoStart::yes)) {
        if (self) {
            reply = co_await sendPluginCommand(operation.command);
        }
        if (self) {
            Q_EMIT exchangeEnded();
        }
    }
    if (!self) {
        co_return QString();
    }
    if (!reply) {
        co_return co_await std::visit([this](auto road) { return proceedWithoutPlugin(std::move(road)); },
                                      operation.withoutPlugin);
    }
    if (operation.afterSuccess == AfterSuccess::activateLightroom && pluginResponseSucceeded(*reply)) {
        co_await activateLightroom();
    }
    co_return formattedPluginResponse(*reply);
}

} // namespace KelvaLR
