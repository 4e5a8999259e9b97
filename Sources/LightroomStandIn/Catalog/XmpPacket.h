#pragma once

#include "Catalog/CameraRawSettings.h"

#include <QByteArray>

#include <exiv2/xmp_exiv2.hpp>

#include <expected>

namespace StandIn {

/// An XMP document in memory. Main thread: the XMP toolkit underneath is not thread-safe.
class XmpPacket
{
public:
    XmpPacket();

    /// The document in these bytes; or why it is none.
    [[nodiscard]] static std::expected<XmpPacket, QString> parse(const QByteArray &bytes);

    /// The document in this file; an empty one when there is no such file.
    [[nodiscard]] static std::expected<XmpPacket, QString> read(const QString &path);

    /// Replaces the file in one step; an error leaves it as it was.
    [[nodiscard]] std::expected<void, QString> write(const QString &path) const;

    /// The text of a simple property such as "Xmp.xmp.Rating", or of a list's first item; else empty.
    [[nodiscard]] QString text(const char *key) const;
    void setText(const char *key, const QString &text);

    /// The items of an unordered list such as "Xmp.dc.subject".
    [[nodiscard]] QStringList items(const char *key) const;
    void setItems(const char *key, const QStringList &items);

    /// The simple properties and lists of the camera-raw-settings namespace. Structures are not among them.
    [[nodiscard]] CameraRawSettings cameraRawSettings() const;
    void setCameraRawValue(const QString &property, const CameraRawValue &value);

private:
    void replace(const Exiv2::XmpKey &key, const Exiv2::Value &value);

    Exiv2::XmpData m_data;
};

} // namespace StandIn
