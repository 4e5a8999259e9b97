#include "Catalog/Sidecar.h"

#include "Catalog/XmpPacket.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace StandIn {

namespace {

constexpr auto ratingKey = "Xmp.xmp.Rating";
constexpr auto pickKey = "Xmp.xmpDM.pick";
constexpr auto keywordsKey = "Xmp.dc.subject";

/// Without these Camera Raw takes a sidecar for one that says nothing about the development, or reads the
/// settings by the rules of an older process version.
void markAsDeveloped(XmpPacket &packet)
{
    const CameraRawSettings present = packet.cameraRawSettings();
    for (const auto &[property, text] :
         {std::pair{u"ProcessVersion"_s, u"11.0"_s}, {u"HasSettings"_s, u"True"_s}}) {
        if (!present.contains(property)) {
            packet.setCameraRawValue(property, text);
        }
    }
}

std::unexpected<QString> failure(QStringView verb, const QString &path, const QString &reason)
{
    return std::unexpected(u"Could not %1 %2: %3"_s.arg(verb, QDir::toNativeSeparators(path), reason));
}

} // namespace

PhotoState PhotoChanges::appliedTo(PhotoState state) const
{
    state.rating = rating ? rating : state.rating;
    state.pickStatus = pickStatus.value_or(state.pickStatus);
    state.keywords = keywords.value_or(state.keywords);
    state.develop.insert(develop);
    return state;
}

std::expected<PhotoState, QString> readSidecar(const QString &path)
{
    const auto packet = XmpPacket::read(path);
    if (!packet) {
        return failure(u"read", path, packet.error());
    }
    PhotoState state;
    bool isNumber = false;
    const int rating = static_cast<int>(packet->text(ratingKey).toDouble(&isNumber));
    state.rating = isNumber ? std::optional(rating) : std::nullopt;
    state.pickStatus = packet->text(pickKey).toInt();
    state.keywords = packet->items(keywordsKey);
    state.develop = packet->cameraRawSettings();
    return state;
}

std::expected<void, QString> changeSidecar(const QString &path, const PhotoChanges &changes)
{
    auto packet = XmpPacket::read(path);
    if (!packet) {
        return failure(u"read", path, packet.error());
    }
    if (changes.rating) {
        packet->setText(ratingKey, QString::number(*changes.rating));
    }
    if (changes.pickStatus) {
        packet->setText(pickKey, QString::number(*changes.pickStatus));
    }
    if (changes.keywords) {
        packet->setItems(keywordsKey, *changes.keywords);
    }
    for (auto change = changes.develop.cbegin(); change != changes.develop.cend(); ++change) {
        packet->setCameraRawValue(change.key(), change.value());
    }
    if (!changes.develop.isEmpty()) {
        markAsDeveloped(*packet);
    }
    if (const auto written = packet->write(path); !written) {
        return failure(u"write", path, written.error());
    }
    return {};
}

} // namespace StandIn
